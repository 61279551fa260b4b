// File conversion: Kenwood memory files read and written back, ARRL repeater files read, and
// the conversion window opened around the link.
#include "convert/convert.h"
#include "basic/basic.h"
#include "cycle/shell_menus.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <QFile>

#include <gtest/gtest.h>

namespace veldor {
namespace {

using test::Harness;

QByteArray Lines(const QStringList& lines) {
    return (lines.join("\r\n") + "\r\n").toLatin1();
}

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// A conversion window on a fresh core, its files in the harness's folder.
struct Converter : Harness {
    explicit Converter(int type, const QString& mark = ".") {
        basic::SetDecimalMark(mark[0]);
        c.s.DecimalSeparator = mark;
        c.s.FieldDelimiter = mark == "." ? "," : ";";
        c.s.ConvertFileType = type;
        c.s.HomeDir = dir.path();
        frmConvert_Load(c);
    }
    ~Converter() { basic::SetDecimalMark('.'); }
    QString write(const QString& name, const QByteArray& bytes) {
        const QString path = dir.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }
    void load(const QString& path) {
        dialogs.openAnswer = path;
        cmdLoadFile_Click(c);
    }
    void exportTo(const QString& path) {
        dialogs.openAnswer = path;
        cmdExportKenwood_Click(c);
    }
    const std::vector<GridRow>& rows() { return c.frmConvert.grdMemories.rows; }
    QString lastBox() { return dialogs.messages.empty() ? "" : dialogs.messages.back().text; }
};

// Memory lines of each family, as its tables give them: CTCSS encode on 88.5 (place 09) with
// minus shift, encode and decode on 100.0 (place 13) locked out, and a split memory. Only
// *.700 has the DCS fields (its third line DCS 132, place 023); *.71 has no AM flag.
struct Family {
    int type;
    const char* extension;
    QStringList memories;
};
const Family kFamilies[] = {
    {0,
     "71",
     {"001\t00145500000\t0\t2\t0\t1\t0\t\t09\t\t09\t000600000\t0\t\t\t\t\tRPT-A",
      "002\t00433500000\t0\t0\t0\t0\t1\t\t09\t\t13\t000000000\t1\t\t\t\t\t",
      "003\t00145000000\t0\t0\t0\t0\t0\t\t09\t\t09\t144500000\t0\t\t00144500000\t0\t\tSPLITS"}},
    {1,
     "700",
     {"001\t00145500000\t0\t2\t0\t1\t0\t0\t09\t0010\t09\t000600000\t0\t0\t\t\t\tRPT-A",
      "002\t00433500000\t0\t0\t0\t0\t1\t0\t09\t0010\t13\t000000000\t1\t1\t\t\t\t",
      "003\t00145000000\t0\t0\t0\t0\t0\t1\t09\t0230\t09\t144500000\t0\t0\t00144500000\t0\t\t"
      "SPLITTER"}},
    {2,
     "D7G",
     {"001\t00145500000\t0\t2\t0\t1\t0\t\t09\t\t09\t000600000\t0\t0\t\t\t\tRPT-A",
      "002\t00433500000\t0\t0\t0\t0\t1\t\t09\t\t13\t000000000\t1\t1\t\t\t\t",
      "003\t00145000000\t0\t0\t0\t0\t0\t\t09\t\t09\t144500000\t0\t0\t00144500000\t0\t\t"
      "SPLITTER"}},
    {3,
     "D7",
     {"001\t00145500000\t0\t2\t0\t1\t0\t\t09\t\t09\t000600000\t0\t0\t\t\t\tRPT-A",
      "002\t00433500000\t0\t0\t0\t0\t1\t\t09\t\t13\t000000000\t1\t1\t\t\t\t",
      "003\t00145000000\t0\t0\t0\t0\t0\t\t09\t\t09\t144500000\t0\t0\t00144500000\t0\t\t"
      "SPLITTER"}},
};
// Kenwood's own lines around the memories, with bytes beyond ASCII and trailing blanks.
const QStringList kHead = {"[MCP-4A]", "Version\t2.10 \u00e9", "123 not a memory yet", "MEMORY"};
const QStringList kTail = {"CALL\t00145000000\t0", "DTMF 0123 ", "END"};

TEST(KenwoodFile, EachFamilyReadsAndWritesBackTheSameBytes) {
    for (const Family& family : kFamilies) {
        SCOPED_TRACE(family.extension);
        Converter t(family.type);
        const QByteArray original = Lines(kHead + family.memories + kTail);
        const QString path = t.write(QString("radio.") + family.extension, original);
        t.load(path);
        ASSERT_EQ(t.rows().size(), 5u);  // the "123" line before MEMORY counts as well
        const MemoryRow& repeater = t.rows()[2].cells;
        EXPECT_EQ(repeater[0], "1");
        EXPECT_EQ(repeater[1], "145.50000");
        EXPECT_EQ(repeater[3], "Minus");
        EXPECT_EQ(repeater[4], ".60000");
        EXPECT_EQ(repeater[6], "CTCSS Enc");
        EXPECT_EQ(repeater[7], "88.5");
        EXPECT_EQ(repeater[9], "RPT-A");
        const MemoryRow& locked = t.rows()[3].cells;
        EXPECT_EQ(locked[6] + " " + locked[7], "CTCSS Enc+Dec 100.0");
        EXPECT_EQ(locked[2], family.type == 0 ? "FM" : "AM");
        EXPECT_EQ(locked[8] + locked[9] + locked[10], "Freq        N");
        EXPECT_EQ(t.c.frmConvert.lblFileLoaded.caption, path + " ");

        // The row read from "123 not a memory yet" has no frequency field of its own; drop it
        // so that the memory lines come back as they were.
        t.c.frmConvert.grdMemories.rows.erase(t.c.frmConvert.grdMemories.rows.begin() + 1);
        t.exportTo(path);
        EXPECT_EQ(t.lastBox(), "Export to Kenwood complete");
        EXPECT_EQ(Contents(path), original);
        EXPECT_EQ(Contents(path + ".BAK"), original);
        EXPECT_FALSE(QFile::exists(path + ".TMP"));
    }
}

TEST(KenwoodFile, SplitAndDcsRowsReadFromTheirFields) {
    Converter t(1);
    t.load(t.write("radio.700", Lines(kHead + kFamilies[1].memories + kTail)));
    const MemoryRow& split = t.rows()[4].cells;
    EXPECT_EQ(split[3] + " " + split[4] + " " + split[5], "Split 144.50000 FM");
    EXPECT_EQ(split[6] + " " + split[7], "DCS 132");
    EXPECT_EQ(split[11], "0");
}

TEST(KenwoodFile, TensToMHzTextBlanksLeadingZeros) {
    Harness h;
    const struct {
        double tens;
        const char* mark;
        const char* text;
    } cases[] = {{14550000, ".", "145.50000"}, {350000, ".", "3.50000"},
                 {60000, ".", ".60000"},       {0, ".", ".00000"},
                 {43350000, ",", "433,50000"}, {100000000, ".", "1000.00000"}};
    for (const auto& k : cases) {
        h.c.s.DecimalSeparator = k.mark;
        EXPECT_EQ(TensToMHzText(h.c, k.tens), k.text) << k.tens;
    }
}

MemoryRow Row(std::initializer_list<QString> cells) {
    MemoryRow row;
    std::copy(cells.begin(), cells.end(), row.begin());
    return row;
}

TEST(KenwoodFile, ExportWritesEachFamilysFields) {
    const MemoryRow dcs = Row({"4", "145.50000", "FM", "Simplex", ".60000", "", "DCS", "132",
                               "Name", "LONGNAME", "Y", "0"});
    const MemoryRow den =
        Row({"5", "145.50000", "AM", "Odd", ".60000", "", "DEN", "023", "Name", "DENNY", "N", "0"});
    const struct {
        int type;
        MemoryRow row;
        const char* line;
    } cases[] = {
        // *.71 cuts the name to six letters and loses the code; it has no DCS fields.
        {0, dcs, "004\t00145500000\t0\t0\t0\t0\t0\t\t09\t\t09\t000600000\t0\t\t\t\t\tLONGNA"},
        {1, dcs,
         "004\t00145500000\t0\t0\t0\t0\t0\t1\t09\t0230\t09\t000600000\t0\t0\t\t\t\tLONGNAME"},
        // "DEN" is no tone; a shift other than the four words writes neither field 4 nor 5.
        {1, den, "005\t00145500000\t0\t0\t0\t0\t09\t0010\t09\t000600000\t1\t1\t\t\t\tDENNY"},
    };
    for (const auto& k : cases) {
        Converter t(k.type);
        QString line;
        ASSERT_TRUE(KenwoodMemoryLine(t.c, k.row, &line));
        EXPECT_EQ(line, k.line);
    }
}

TEST(KenwoodFile, ExportWithoutMemoryOrCallLines) {
    Converter t(1);
    const std::vector<MemoryRow> rows = {
        Row({"1", "145.50000", "FM", "Simplex", ".60000", "", "", "", "Freq", "", "Y", "0"}),
        Row({"2", "", "FM"})};  // no frequency: skipped
    const QString memory =
        "001\t00145500000\t0\t0\t0\t0\t0\t0\t09\t0010\t09\t000600000\t0\t0\t\t\t\t";
    const struct {
        QStringList file, written;
    } cases[] = {
        // No "MEMORY": the file is copied whole, then the rows, and nothing follows.
        {{"HEAD", "001\told", "CALL"}, {"HEAD", "001\told", "CALL", memory}},
        // No "CALL": what follows "MEMORY" is dropped but for the last line, written once more.
        {{"HEAD", "MEMORY", "001\told", "END"}, {"HEAD", "MEMORY", memory, "END"}},
        {{"MEMORY", "001\told", "CALL", "X"}, {"MEMORY", memory, "CALL", "X"}},
    };
    for (const auto& k : cases) {
        QByteArray out;
        ASSERT_TRUE(ExportKenwoodFile(t.c, Lines(k.file), rows, &out));
        EXPECT_EQ(out, Lines(k.written));
    }
}

TEST(KenwoodFile, ExportKeepsTheUsersFileUntilTheNewOneIsWhole) {
    Converter t(1);
    const QByteArray original = Lines(QStringList{"MEMORY"} + kFamilies[1].memories + kTail);
    const QString path = t.write("radio.700", original);
    t.exportTo(path);  // nothing read yet
    EXPECT_EQ(t.lastBox(),
              "Import a CSV file or read a Kenwood file into the grid before trying to Export to "
              "Kenwood");
    t.load(path);

    // A second export replaces the .BAK of the first.
    t.c.frmConvert.grdMemories.rows[1].cells[9] = "FIRST";
    t.exportTo(path);
    const QByteArray first = Contents(path);
    t.c.frmConvert.grdMemories.rows[1].cells[9] = "SECOND";
    t.exportTo(path);
    EXPECT_EQ(Contents(path + ".BAK"), first);
    EXPECT_TRUE(Contents(path).contains("\tSECOND\r\n"));

    // A frequency that is no number ends the export before any name changes.
    const QByteArray second = Contents(path);
    t.c.frmConvert.grdMemories.rows[2].cells[1] = "abc";
    t.exportTo(path);
    EXPECT_EQ(t.lastBox(), "Run-time error '13':\r\n\r\nType mismatch");
    EXPECT_EQ(Contents(path), second);
    EXPECT_EQ(Contents(path + ".BAK"), first);
    EXPECT_TRUE(t.c.frmConvert.cmdExit.enabled);

    t.c.s.ConvertFileType = ArrlRepeaterFile;
    t.exportTo(path);
    EXPECT_EQ(t.lastBox(), "Select a Kenwood rig to export to");
}

TEST(RepeaterFile, RecordsBecomeRows) {
    const struct {
        const char* line;
        const char* columns;  // columns 1, 3, 4, 5, 6, 7, 9
    } cases[] = {
        {"12,a,b,c,d,145.600,-,W1AW,e,100.0", "145.60000|Minus|.60000||CTCSS Enc|100.0|W1AW"},
        {"13,,,,,144.000,+,,,", "144.00000|Plus|1.00000||||        "},
        {"14,,,,,146.52,146.520,N0CALL-LONG,,", "146.52000|Simplex|146.52000||||N0CALL-LONG"},
        {"15,,,,,147.000,147.600,,,", "147.00000|Split|147.60000|FM|||        "},
        {"16,,,,,446.500,,,,", "446.50000|Simplex|5.00000||||        "},
        {"17,,,,,29.620,-,,,", "29.62000|Minus|.10000||||        "},
    };
    for (const auto& k : cases) {
        Converter t(ArrlRepeaterFile);
        MemoryRow row;
        ASSERT_TRUE(ParseRepeaterLine(t.c, k.line, row)) << k.line;
        EXPECT_EQ(QStringList({row[1], row[3], row[4], row[5], row[6], row[7], row[9]}).join('|'),
                  k.columns)
            << k.line;
    }
}

TEST(RepeaterFile, OnlyRecordsOneTo199AreRead) {
    Converter t(ArrlRepeaterFile);
    t.load(t.write("rpt.tpe", Lines({"\"Rec\",\"State\",\"City\",\"x\",\"y\",\"Output\",\"Input\"",
                                     "\"1\",\"CT\",\"Newington\",,,\"145.450\",\"-\",\"W1AW\"",
                                     "\"200\",,,,,\"146.940\",\"-\",\"W1XX\"",
                                     "\"199\",,,,,\"147.120\",\"+\",\"W1YY\",,\"77.0\""})));
    ASSERT_EQ(t.rows().size(), 3u);
    EXPECT_EQ(t.rows()[1].cells[9], " W1AW ");  // quotes are blanks
    EXPECT_EQ(t.rows()[2].cells[1] + " " + t.rows()[2].cells[7], "147.12000 77.0");

    // Export CSV leaves out a row without a receive frequency; the others keep their numbers.
    t.c.frmConvert.grdMemories.rows[1].cells[1].clear();
    t.dialogs.saveAnswer = t.dir.filePath("out");
    cmdExport_Click(t.c);
    EXPECT_EQ(t.lastBox(), "Export completed");
    EXPECT_EQ(Contents(t.dir.filePath("out.CSV")),
              Lines({"Memory,RX Freq,RX Mode,Shift,TX Shift/Freq,TX Mode,CTCSS/DCS,Tone/Code,Show,"
                     "Name,Scan,Group,Description",
                     " 2 , 147.12 ,FM,Plus, .6 ,,CTCSS Enc,77.0,Name, W1YY   ,Y,0,"}));
}

TEST(RepeaterFile, FilesThatHoldNoRecordsOrBadNumbers) {
    // ";" fields under a "." locale: this reader does not look for the delimiter.
    Converter t(ArrlRepeaterFile);
    const QString semicolons = t.write("rpt.CSV", Lines({"\"1\";;;;;\"145.450\";\"-\""}));
    t.load(semicolons);
    EXPECT_EQ(t.lastBox(), "No memory records found - please try another file");
    // The same file under a "," locale reads.
    Converter comma(ArrlRepeaterFile, ",");
    comma.load(semicolons);
    ASSERT_EQ(comma.rows().size(), 2u);
    EXPECT_EQ(comma.rows()[1].cells[1] + " " + comma.rows()[1].cells[4], "145,45000 ,60000");

    // A frequency that is no number ends the reading; the grid keeps what it had.
    comma.load(comma.write("bad.CSV", Lines({"2;;;;;145,5;-", "3;;;;;none;-"})));
    EXPECT_EQ(comma.lastBox(), "Run-time error '13':\r\n\r\nType mismatch");
    EXPECT_EQ(comma.rows()[1].cells[1], "145,45000");
    EXPECT_TRUE(comma.c.frmConvert.cmdExit.enabled);

    comma.load(comma.dir.filePath("missing.CSV"));
    EXPECT_EQ(comma.lastBox(), "Filename " + comma.dir.filePath("missing.CSV") + " does not exist");
}

TEST(ConvertWindow, OpensBetweenTwoExchangesWithTheLinkGivenUp) {
    test::Station station(RigFT817);
    station.load();
    QString statusWhileOpen;
    station.windows.operators[FormId::frmConvert] = [&] {
        statusWhileOpen = station.stored("CurrentValues", "Status");
    };
    // Link off: at once.
    mnuConvert_Click(station.c);
    EXPECT_EQ(station.windows.timesShown(FormId::frmConvert), 1);
    EXPECT_TRUE(
        station.c.frmErrorList.txtErrors.text.contains("Messages from the Convert routine"));

    // Link on: the next tick opens it, and the link is taken again afterwards.
    station.switchOn();
    mnuConvert_Click(station.c);
    EXPECT_EQ(station.windows.timesShown(FormId::frmConvert), 1);
    EXPECT_TRUE(station.c.s.PendingConvert);
    tmrPollInterval_Timer(station.c);
    EXPECT_EQ(station.windows.timesShown(FormId::frmConvert), 2);
    EXPECT_EQ(statusWhileOpen, "InActive");
    EXPECT_EQ(station.stored("CurrentValues", "Status"), "Active");
    EXPECT_TRUE(station.pollTimer.enabled());
    EXPECT_FALSE(station.c.s.PendingConvert);
}

}  // namespace
}  // namespace veldor
