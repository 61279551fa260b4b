#include "ui/about_dialog.h"

#include "shell/about.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace veldor {

AboutDialog::AboutDialog(Core& c, Views& views, QWidget* parent) : QDialog(parent), kit_(c, views) {
    setObjectName("frmAbout");
    FrmAbout& d = c.frmAbout;
    setWindowTitle(d.caption);
    auto* page = new QVBoxLayout(this);
    QLabel* title = kit_.label(this, "lblTitle", d.lblTitle);
    QFont big = title->font();
    big.setPointSizeF(big.pointSizeF() * 1.8);
    big.setBold(true);
    title->setFont(big);
    page->addWidget(title);
    page->addWidget(kit_.label(this, "lblVersion", d.lblVersion));
    QLabel* description = kit_.label(this, "lblDescription", d.lblDescription);
    description->setWordWrap(true);
    page->addWidget(description);
    // The link is a button drawn as a link, so that the keyboard reaches it too.
    QPushButton* link = kit_.labelButton(this, "lblLink", d.lblLink, frmAbout_lblLink_Click);
    link->setFlat(true);
    link->setCursor(Qt::PointingHandCursor);
    QPalette colours = link->palette();
    colours.setColor(QPalette::ButtonText, colours.color(QPalette::Link));
    link->setPalette(colours);
    page->addWidget(link);
    QPushButton* ok = kit_.button(this, "cmdOK", d.cmdOK, frmAbout_cmdOK_Click);
    ok->setDefault(true);
    page->addWidget(ok, 0, Qt::AlignRight);
    setMinimumWidth(360);
    kit_.render();
}

void AboutDialog::reject() {
    kit_.handle(frmAbout_cmdOK_Click);
}

}  // namespace veldor
