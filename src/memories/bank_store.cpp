#include "memories/banks.h"

namespace veldor {

namespace {

// The nine fields of a memory: key suffix, values of the bank on show, default. The default is
// also what an emptied memory holds; ClearBank leaves the last three as they are.
struct BankField {
    const char* suffix;
    std::array<QString, 12> MemoriesState::*values;
    const char* defaultValue;
    bool keptByClear;
};
constexpr BankField kBankFields[] = {
    {"ClickToSet", &MemoriesState::MemClickToSet, "Y", false},
    {"Name", &MemoriesState::MemName, "Empty", false},
    {"Freq", &MemoriesState::MemFreq, "Empty", false},
    {"Mode", &MemoriesState::MemMode, "", false},
    {"CTCSS", &MemoriesState::MemCTCSS, "0", false},
    {"EncDec", &MemoriesState::MemEncDec, "00", false},
    {"Shift", &MemoriesState::MemShift, "0", true},
    {"Scan", &MemoriesState::MemScan, "Y", true},
    {"Offset", &MemoriesState::MemOffset, "600", true},
};

QString BankKey(int bank, int memory, const char* suffix) {
    return QString("Bank%1M%2%3").arg(bank + 1).arg(memory + 1).arg(QLatin1String(suffix));
}

// Caption and colours of one memory's two boxes.
void ShowMemory(Core& c, int i) {
    const State& s = c.s;
    Label& store = c.f.lblStore[i];
    Label& set = c.f.lblSet[i];
    const bool byClick = s.MemClickToSet[i] == "Y";
    if (s.MemFreq[i] == "Empty")
        store.caption = "Empty";
    else if (byClick)
        store.caption = s.MemFreq[i] + "\n" + s.MemMode[i].trimmed();
    else
        store.caption = s.MemName[i].trimmed() + "\n" + s.MemFreq[i];
    store.backColour = byClick ? PaleGreen : BankPaleBlue;
    // White shows the memories that bank scans pass over.
    set.backColour = s.MemScan[i] == "N" ? White : store.backColour;
}

}  // namespace

void LoadBank(Core& c, int bank) {
    State& s = c.s;
    for (int i = 0; i < 12; ++i) {
        for (const BankField& field : kBankFields)
            (s.*field.values)[i] = GetSetting(c, s.AppName, s.BankSection,
                                              BankKey(bank, i, field.suffix), field.defaultValue);
        // A memory stored under the other locale's decimal mark reads in this one.
        s.MemFreq[i].replace(s.OtherDecimalSeparator, s.DecimalSeparator);
        if (s.MemEncDec[i] == "11") s.MemEncDec[i] = "01";
        ShowMemory(c, i);
    }
    LoadBankNames(c);
}

// A bank is saved in one write of the store: all of it or, should the write fail, none.
void SaveBank(Core& c, int bank) {
    const State& s = c.s;
    QList<QPair<QString, QString>> keys;
    for (int i = 0; i < 12; ++i)
        for (const BankField& field : kBankFields)
            keys.append({BankKey(bank, i, field.suffix), (s.*field.values)[i]});
    SaveSettings(c, s.AppName, s.BankSection, keys);
}

void ClearBank(Core& c, int bank) {
    const State& s = c.s;
    QList<QPair<QString, QString>> keys;
    for (int i = 0; i < 12; ++i) {
        for (const BankField& field : kBankFields)
            if (!field.keptByClear)
                keys.append({BankKey(bank, i, field.suffix), field.defaultValue});
        c.f.lblStore[i].caption = "Empty";
    }
    SaveSettings(c, s.AppName, s.BankSection, keys);
}

void LoadBankNames(Core& c) {
    for (int n = 1; n <= 6; ++n)
        c.f.cmdBankNumber[n - 1].caption =
            GetSetting(c, c.s.AppName, c.s.BankSection, QString("Bank%1Name").arg(n),
                       QString("Bank &%1").arg(n));
}

void EmptyMemory(Core& c, int index) {
    for (const BankField& field : kBankFields) (c.s.*field.values)[index] = field.defaultValue;
}

}  // namespace veldor
