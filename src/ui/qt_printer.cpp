#include "ui/qt_printer.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

namespace veldor {

QtPrinter::QtPrinter(QString pdfFile) : pdfFile_(std::move(pdfFile)) {
    setFont("Courier New", 9);
}

bool QtPrinter::available() {
    return !pdfFile_.isEmpty() || !QPrinterInfo::availablePrinterNames().isEmpty();
}

bool QtPrinter::setFont(const QString& family, int points) {
    font_ = QFont(family, points);
    // Where the family is missing, a fixed-pitch one stands in for it.
    font_.setStyleHint(QFont::TypeWriter);
    font_.setFixedPitch(true);
    return true;
}

bool QtPrinter::print(const QStringList& lines, QString* reason) {
    QPrinter printer(QPrinter::HighResolution);
    if (!pdfFile_.isEmpty()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdfFile_);
    }
    printer.setDocName("VELDOR memories");
    QPainter painter;
    if (!painter.begin(&printer)) {
        if (reason) *reason = "the printer could not be started";
        return false;
    }
    painter.setFont(QFont(font_, &printer));
    const QFontMetrics metrics(painter.font(), &printer);
    const QRect page = printer.pageLayout().paintRectPixels(printer.resolution());
    const int step = metrics.lineSpacing();
    int y = metrics.ascent();
    for (const QString& line : lines) {
        if (y + metrics.descent() > page.height()) {
            printer.newPage();
            y = metrics.ascent();
        }
        painter.drawText(0, y, line);
        y += step;
    }
    return painter.end();
}

}  // namespace veldor
