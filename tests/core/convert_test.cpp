// File conversion: Kenwood memory files read and written back, and ARRL repeater files read.
#include "convert/convert.h"
#include "basic/basic.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <QFile>

#include <gtest/gtest.h>

namespace veldor {
namespace {

QByteArray Lines(const QStringList& lines) {
    return (lines.join("\r\n") + "\r\n").toLatin1();
}

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// A conversion window on a fresh core, its files in the harness's folder.
struct Converter : test::Harness {
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
        QFile file(dir.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    void load(const QString& path) {
        dialogs.openAnswer = path;
        cmdLoadFile_Click(c);
    }
    void exportTo(const QString& path) {
        dialogs.openAnswer = path;
        cmdExportKenwood_Click(c);
    }
    std::vector<GridRow>& rows() { return c.frmConvert.grdMemories.rows; }
    QString lastBox() { return dialogs.messages.empty() ? "" : dialogs.messages.back().text; }
};

// Memory lines of each family: CTCSS encode on 88.5 (place 09) with minus shift, encode and
// decode on 100.0 (place 13) locked out, and a split memory. Only *.700 has the DCS fields
// (its third line DCS 132, place 023); *.71 has no AM flag; *.D7G and *.D7 are alike.
const QStringList kD7 = {
    "001\t00145500000\t0\t2\t0\t1\t0\t\t09\t\t09\t000600000\t0\t0\t\t\t\tRPT-A",
    "002\t00433500000\t0\t0\t0\t0\t1\t\t09\t\t13\t000000000\t1\t1\t\t\t\t",
    "003\t00145000000\t0\t0\t0\t0\t0\t\t09\t\t09\t144500000\t0\t0\t00144500000\t0\t\tSPLITTER"};
const struct {
    int type;
    const char* extension;
    QStringList memories;
} kFamilies[] = {
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
    {2, "D7G", kD7},
    {3, "D7", kD7},
};
// Kenwood's own lines around the memories, with bytes beyond ASCII and trailing blanks.
const QStringList kHead = {"[MCP-4A]", "Version\t2.10 \u00e9", "123 not a memory yet", "MEMORY"};
const QStringList kTail = {"CALL\t00145000000\t0", "DTMF 0123 ", "END"};

TEST(KenwoodFile, EachFamilyReadsAndWritesBackTheSameBytes) {
    for (const auto& family : kFamilies) {
        SCOPED_TRACE(family.extension);
        Converter t(family.type);
        const QByteArray original = Lines(kHead + family.memories + kTail);
        const QString path = t.write(QString("radio.") + family.extension, original);
        t.load(path);
        ASSERT_EQ(t.rows().size(), 5u);  // the "123" line before MEMORY counts as well
        const MemoryRow& repeater = t.rows()[2].cells;
        EXPECT_EQ(QStringList({repeater[0], repeater[1], repeater[3], repeater[4], repeater[6],
                               repeater[7], repeater[9]})
                      .join('|'),
                  "1|145.50000|Minus|.60000|CTCSS Enc|88.5|RPT-A");
        const MemoryRow& locked = t.rows()[3].cells;
        EXPECT_EQ(locked[6] + " " + locked[7], "CTCSS Enc+Dec 100.0");
        EXPECT_EQ(locked[2], family.type == 0 ? "FM" : "AM");
        EXPECT_EQ(locked[8] + locked[9] + locked[10], "Freq        N");
        const MemoryRow& split = t.rows()[4].cells;
        EXPECT_EQ(split[3] + " " + split[4] + " " + split[5], "Split 144.50000 FM");
        if (family.type == 1) {
            EXPECT_EQ(split[6] + " " + split[7], "DCS 132");
        }

        // The row read from "123 not a memory yet" has no frequency field of its own; drop it
        // so that the memory lines come back as they were.
        t.rows().erase(t.rows().begin() + 1);
        t.exportTo(path);
        EXPECT_EQ(t.lastBox(), "Export to Kenwood complete");
        EXPECT_EQ(Contents(path), original);
        EXPECT_EQ(Contents(path + ".BAK"), original);
        EXPECT_FALSE(QFile::exists(path + ".TMP"));
    }
}

TEST(KenwoodFile, ExportKeepsTheUsersFileUntilTheNewOneIsWhole) {
    Converter t(1);
    const QString path = t.write("radio.700", Lines(QStringList{"MEMORY"} + kD7 + kTail));
    t.exportTo(path);  // nothing read yet
    EXPECT_EQ(t.lastBox(),
              "Import a CSV file or read a Kenwood file into the grid before trying to Export to "
              "Kenwood");
    t.load(path);
    t.rows()[1].cells[9] = "FIRST";
    t.exportTo(path);
    const QByteArray first = Contents(path);
    // A frequency that is no number ends the export before any name changes.
    t.rows()[1].cells[9] = "SECOND";
    t.rows()[2].cells[1] = "abc";
    t.exportTo(path);
    EXPECT_EQ(t.lastBox(), "Run-time error '13':\r\n\r\nType mismatch");
    EXPECT_EQ(Contents(path), first);
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

TEST(RepeaterFile, OnlyRecordsOneTo199AreReadAndExportedAsCsv) {
    Converter t(ArrlRepeaterFile);
    t.load(t.write("rpt.tpe", Lines({"\"Rec\",\"State\",\"City\",\"x\",\"y\",\"Output\",\"Input\"",
                                     "\"1\",\"CT\",\"Newington\",,,\"145.450\",\"-\",\"W1AW\"",
                                     "\"200\",,,,,\"146.940\",\"-\",\"W1XX\"",
                                     "\"199\",,,,,\"147.120\",\"+\",\"W1YY\",,\"77.0\""})));
    ASSERT_EQ(t.rows().size(), 3u);
    EXPECT_EQ(t.rows()[1].cells[9], " W1AW ");  // quotes are blanks
    // Export CSV leaves out a row without a receive frequency; the others keep their numbers.
    t.rows()[1].cells[1].clear();
    t.dialogs.saveAnswer = t.dir.filePath("out");
    cmdExport_Click(t.c);
    EXPECT_EQ(t.lastBox(), "Export completed");
    EXPECT_EQ(Contents(t.dir.filePath("out.CSV")),
              Lines({"Memory,RX Freq,RX Mode,Shift,TX Shift/Freq,TX Mode,CTCSS/DCS,Tone/Code,Show,"
                     "Name,Scan,Group,Description",
                     " 2 , 147.12 ,FM,Plus, .6 ,,CTCSS Enc,77.0,Name, W1YY   ,Y,0,"}));
}

}  // namespace
}  // namespace veldor
