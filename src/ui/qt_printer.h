// The system's default printer through Qt's printing: lines of fixed-pitch text, page after
// page as the page's end comes, with no page numbers of its own.
#pragma once

#include "link/platform.h"

#include <QFont>

namespace veldor {

class QtPrinter : public Printer {
  public:
    // With a file name, documents go to that PDF file rather than to the default printer.
    explicit QtPrinter(QString pdfFile = {});
    bool available() override;
    bool setFont(const QString& family, int points) override;
    bool print(const QStringList& lines, QString* reason) override;

  private:
    QString pdfFile_;
    QFont font_;
};

}  // namespace veldor
