#include "ui/meters_panel.h"

#include "accessories/meters_panel.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace veldor {

namespace {

FrmMeters& Form(Core& c) {
    return c.frmMeters;
}

struct MeterRow {
    const char* name;  // the bar is pbar + name, its number lbl + name
    ProgressBar FrmMeters::*bar;
    Label FrmMeters::*number;
};
constexpr MeterRow kRows[] = {
    {"ALC", &FrmMeters::pbarALC, &FrmMeters::lblALC},
    {"VLT", &FrmMeters::pbarVLT, &FrmMeters::lblVLT},
    {"AMP", &FrmMeters::pbarAMP, &FrmMeters::lblAMP},
    {"FWD", &FrmMeters::pbarFWD, &FrmMeters::lblFWD},
    {"REV", &FrmMeters::pbarREV, &FrmMeters::lblREV},
    {"SFT", &FrmMeters::pbarSFT, &FrmMeters::lblSFT},
    {"PCH", &FrmMeters::pbarPCH, &FrmMeters::lblPCH},
    {"SQL", &FrmMeters::pbarSQL, &FrmMeters::lblSQL},
    {"HPF", &FrmMeters::pbarHPF, &FrmMeters::lblHPF},
    {"LPF", &FrmMeters::pbarLPF, &FrmMeters::lblLPF},
    {"NR", &FrmMeters::pbarNR, &FrmMeters::lblNR},
    {"PRC", &FrmMeters::pbarPRC, &FrmMeters::lblPRC},
    {"DSC", &FrmMeters::pbarDSC, &FrmMeters::lblDSC},
};

}  // namespace

MetersPanel::MetersPanel(Core& core, Views& views, QWidget* parent)
    : DockedPanel(core, views, parent,
                  {&Form(core).left, &Form(core).top, &Form(core).width, &Form(core).height,
                   &Form(core).loaded, frmMeters_cmdClose_Click}) {
    setObjectName("frmMeters");
    FrmMeters& m = Form(core);
    ViewKit& k = kit();
    setWindowTitle(m.caption);
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);

    auto* page = new QVBoxLayout(this);
    auto* meters = new QGridLayout();
    int row = 0;
    for (const MeterRow& r : kRows) {
        auto* name = new QLabel(r.name, this);
        QProgressBar* bar = k.bar(this, QString("pbar") + r.name, m.*r.bar);
        bar->setAccessibleName(r.name);
        bar->setMinimumWidth(160);
        bar->setMaximumHeight(14);
        QLabel* number = k.label(this, QString("lbl") + r.name, m.*r.number);
        number->setFont(fixed);
        number->setMinimumWidth(number->fontMetrics().horizontalAdvance("000"));
        number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        meters->addWidget(name, row, 0);
        meters->addWidget(bar, row, 1);
        meters->addWidget(number, row, 2);
        ++row;
    }
    page->addLayout(meters);

    QLabel* vfoB = k.label(this, "Label15", m.Label15);
    QFont bold = vfoB->font();
    bold.setBold(true);
    vfoB->setFont(bold);
    page->addWidget(vfoB);
    auto* vfoRow = new QHBoxLayout();
    for (auto [name, model] : {std::pair<const char*, Label*>{"lblVFOB", &m.lblVFOB},
                               {"lblModeB", &m.lblModeB},
                               {"lblTxRx", &m.lblTxRx}}) {
        QLabel* l = k.label(this, name, *model);
        l->setFont(fixed);
        l->setAccessibleName(model->toolTip.trimmed());
        vfoRow->addWidget(l);
    }
    vfoRow->addStretch();
    page->addLayout(vfoRow);

    auto* buttons = new QHBoxLayout();
    buttons->addWidget(
        k.button(this, "cmdDockLeft", m.cmdDockLeft, frmMeters_cmdDockLeft_Click, "Dock &left"));
    buttons->addWidget(k.button(this, "cmdDockRight", m.cmdDockRight, frmMeters_cmdDockRight_Click,
                                "Dock r&ight"));
    buttons->addStretch();
    buttons->addWidget(k.button(this, "cmdClose", m.cmdClose, frmMeters_cmdClose_Click));
    page->addStretch();
    page->addLayout(buttons);
    k.render();
}

}  // namespace veldor
