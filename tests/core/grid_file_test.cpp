// The memory CSV file and the grid's own file: the import's messages and failures, both
// delimiters and both locales, the written form, and the grid file's round trip.
#include "grid/csv_file.h"
#include "grid/grid.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <QFile>

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

const QByteArray kHeader =
    "Memory,RX Freq,RX Mode,Shift,TX Shift/Freq,TX Mode,CTCSS/DCS,"
    "Tone/Code,Show,Name,Scan,Group,Description\r\n";

CsvRules Ft817Rules() {
    CsvRules rules{RigFT817, {}, {}};
    for (const char* t : Tones50()) rules.tones << t;
    for (const char* d : DcsCodes()) rules.dcsCodes << d;
    return rules;
}

CsvImport Read(const QByteArray& bytes, QChar delimiter = ',', QChar decimal = '.') {
    return ReadCsvFile(bytes, delimiter, decimal, Ft817Rules());
}

TEST(CsvImport, ReportsEachFaultOfARecordAndReadsOn) {
    const struct {
        const char* record;
        QStringList messages;
    } cases[] = {
        {"1,145.5,FM,Plus,.6,,CTCSS Enc,,Freq,Rpt,Y,0,",
         {"Record 1.  CTCSS specified, but tone is missing",
          "Record 1. CTCSS tone of .0 is invalid."}},
        {"1,500,FM,Simplex,.6,,,,Freq,,Y,0,",
         {"Record 1. RX frequency of500 is outside the range of the rig"}},
        {"1,7.05,XX,Sideways,.1,,,,Freq,,Y,0,",
         {"Record 1. RX mode XX is invalid.", "Record 1. Shift of Sideways is invalid."}},
        {"1,145.5,FM,split,500,ZZ,,,Freq,,Y,0,",
         {"Record 1. TX frequency is outside the range of the rig",
          "Record 1. TX mode ZZ is invalid."}},
        {"1,145.5,FM,Plus,.6,,,,Freq,,x,?,",
         {"Record 1. Scan of X is invalid.  It should be either Y or N, and will been changed to Y",
          "Record 1. Group of ? is invalid.  It should be 0-9 or A-Z, and will be changed to 0 "
          "(zero)."}},
    };
    for (const auto& t : cases) {
        SCOPED_TRACE(t.record);
        const CsvImport in = Read(kHeader + t.record + "\r\n");
        EXPECT_EQ(in.messages, t.messages);
        EXPECT_EQ(in.rows.size(), 1u);
    }
    const CsvImport mended = Read(kHeader + "1,145.5,FM,Plus,,,CTCSS Enc,67,Freq,Rpt,x,?,\r\n" +
                                  "2,145.5,FM,Plus,.6,,DCS,23,NAME,Repeater9,,,d\r\n" +
                                  "3,145.123456,FM,Split,145.000004,FM,,,Freq,,Y,0,\r\n");
    // An empty field 5 is 0.1 MHz; names are cut or padded to eight.
    const auto& first = mended.rows[0].cells;
    EXPECT_EQ(QStringList({first[4], first[7], first[9], first[10], first[11]}).join('|'),
              ".10000|67.0|Rpt     |Y|0");
    const auto& second = mended.rows[1].cells;
    EXPECT_EQ(QStringList({second[7], second[8], second[9], second[12]}).join('|'),
              "023|NAME|Repeater|d");
    // Frequencies round to five decimals.
    const auto& third = mended.rows[2].cells;
    EXPECT_EQ(third[1] + " " + third[4], "145.12346 145.00000");
}

TEST(CsvImport, EitherDelimiterReadsUnderEitherLocale) {
    const struct {
        QByteArray file;
        QChar decimal;
        QChar delimiterAfter;
        const char* rx;
        const char* tx;
    } cases[] = {
        {"a;b\r\n1;145,5;FM;Plus;,6;;;;Freq;;Y;0;\r\n", '.', ';', "145.50000", ".60000"},
        {"a,b\r\n1,145.5,FM,Plus,.6,,,,Freq,,Y,0,\r\n", ',', ',', "145,50000", ",60000"},
    };
    for (const auto& t : cases) {
        QChar delimiter = t.decimal == '.' ? ',' : ';';
        const CsvImport in = ReadCsvFile(t.file, delimiter, t.decimal, Ft817Rules());
        EXPECT_EQ(delimiter, t.delimiterAfter) << t.file.constData();
        ASSERT_EQ(in.rows.size(), 1u) << t.file.constData();
        EXPECT_EQ(in.rows[0].cells[1], t.rx);
        EXPECT_EQ(in.rows[0].cells[4], t.tx);
    }
    const CsvImport quoted =
        Read(kHeader + "1,145.5,FM,Plus,.6,,,,Freq,\"A, B\",N,3,\"Hill, north\"\r\n");
    EXPECT_EQ(quoted.rows[0].cells[9], "A  B    ");
    EXPECT_EQ(quoted.rows[0].cells[10], "N");
    EXPECT_EQ(quoted.rows[0].cells[12], "Hill  north");
}

TEST(CsvImport, AFieldThatIsNoNumberStopsTheImportAtItsRecord) {
    EXPECT_FALSE(Read("one word\r\n1,7,LSB\r\n").headerValid);
    const CsvImport blank = Read(kHeader + "1,7,LSB,Simplex,.1,,,,Freq,,Y,0,\r\n\r\n");
    EXPECT_EQ(blank.failedRecord, 2);
    EXPECT_TRUE(blank.rows.empty());
    EXPECT_EQ(CsvFailureText(blank),
              "Problem encountered reading the import file at record 2\r\nError number13, Type "
              "mismatch\r\nImport aborted\r\nProbable cause is an extra blank line in the CSV "
              "file\r\nor one or more commas missing from the end of record(s)");
    for (const char* record : {"4000000000,7,LSB", "1,7.x,LSB", "1,7,LSB,Split,.1x"}) {
        const CsvImport bad = Read(kHeader + record);
        EXPECT_EQ(bad.failedRecord, 1) << record;
        EXPECT_NE(bad.errorNumber, 0) << record;
    }
}

TEST(CsvExport, WritesNumbersWithABlankEachSideAndNamesOfEight) {
    std::vector<GridRow> rows(5);
    rows[1].cells = {"1", "7.00000", "LSB", "Simplex", ".10000", "", "",
                     "",  "Freq",    "",    "Y",       "0",      ""};
    rows[2].cells = {"2",    "145.50000", "FM",        "Plus", ".60000", "",    "CTCSS Enc",
                     "88.5", "Name",      "Repeater9", "N",    "A",      "Hill"};
    rows[3].cells = {"3", "", "", "", "", "", "",
                     "",  "", "", "", "", ""};  // inserted, never filled
    rows[4].cells = {"4", "Empty", "USB", "Simplex", "", "", "", "", "Freq", "x", "Y", "0", ""};
    rows[4].hidden = true;
    EXPECT_EQ(WriteCsvRows(rows, ',', '.', false, 2),
              kHeader + " 1 , 7 ,LSB,Simplex, .1 ,,,,Freq,        ,Y,0,\r\n" +
                  " 2 , 145.5 ,FM,Plus, .6 ,,CTCSS Enc,88.5,Name,Repeater,N,A,Hill\r\n" +
                  " 4 , 0 ,USB,Simplex, 0 ,,,,Freq,x       ,Y,0,\r\n");
    EXPECT_EQ(CsvNumber(-0.25, '.'), "-.25 ");
    // What is written reads back as it was, under either locale.
    for (QChar decimal : {QChar('.'), QChar(',')}) {
        std::vector<GridRow> grid(2);
        const QString rx = QString("438") + decimal + "62500",
                      tx = QString("7") + decimal + "60000";
        grid[1].cells = {"1",   rx,     "FM",       "Minus", tx,  "",    "DCS",
                         "023", "Freq", "GB3X    ", "Y",     "7", "text"};
        QChar delimiter = decimal == '.' ? ',' : ';';
        const CsvImport back = ReadCsvFile(WriteCsvRows(grid, delimiter, decimal, false, 2),
                                           delimiter, decimal, Ft817Rules());
        ASSERT_EQ(back.rows.size(), 1u);
        for (int col = 1; col < GridCols; ++col)
            EXPECT_EQ(back.rows[0].cells[col], grid[1].cells[col]) << col;
    }
}

TEST(GridFile, KeepsEveryCellAndTheRowCountExactly) {
    std::vector<GridRow> rows(4);
    rows[0].cells[0] = "Memory";
    rows[1].cells = {"1", "a\tb",  "line\nbreak", "cr\r", "back\\slash\\t", "\"quoted\"",
                     "",  " lead", "trail ",      "\\",   "\t\n",           "é€",
                     ""};
    rows[3].cells[12] = "last";
    std::vector<GridRow> back;
    QString reason;
    ASSERT_TRUE(DecodeGrid(EncodeGrid(rows), &back, &reason)) << reason.toStdString();
    ASSERT_EQ(back.size(), rows.size());
    for (size_t r = 0; r < rows.size(); ++r) EXPECT_EQ(back[r].cells, rows[r].cells) << r;

    const QByteArray good = EncodeGrid(rows);
    for (const QByteArray& bad :
         {QByteArray(), good.left(good.size() - 1), good + "x\n",
          good.left(good.indexOf("a\\tb")) + "a\\qb" + good.mid(good.indexOf("a\\tb") + 4),
          QByteArray(good).replace("\n4\n", "\n9\n")}) {
        std::vector<GridRow> untouched(1);
        untouched[0].cells[0] = "kept";
        EXPECT_FALSE(DecodeGrid(bad, &untouched, &reason));
        ASSERT_EQ(untouched.size(), 1u);
        EXPECT_EQ(untouched[0].cells[0], "kept");
    }
}

TEST(GridFile, AnUnreadableFileIsKeptAsideAndTheGridStartsAfresh) {
    Station st(RigFT817);
    st.load();
    const QString name = GridFileName(st.c);
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not a grid\n\x01\xff");
    file.close();
    frmCsvMem_Load(st.c);
    EXPECT_EQ(st.c.frmCsvMem.grdMemories.Rows(), 2);
    EXPECT_TRUE(QFile::exists(name + ".bad"));
    EXPECT_TRUE(st.c.frmErrorList.txtErrors.text.contains("could not be read"));
}

}  // namespace
}  // namespace veldor::test
