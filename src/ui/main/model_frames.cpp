#include "accessories/dsp_panel.h"
#include "accessories/xband_repeat.h"
#include "protocol/model_controls.h"
#include "tuning/vr5000_steps.h"
#include "ui/main/groups.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace veldor {

namespace {

QLabel* RigName(ViewKit& kit, QWidget* parent, const char* name, const Label& model) {
    QLabel* label = kit.label(parent, name, model);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

struct Feature {
    const char* name;
    const CommandButton* model;
    void (*handler)(Core&);
};

// A row of feature buttons after the rig's name.
QHBoxLayout* FeatureRow(ViewKit& kit, QGroupBox* box, const char* nameObject, const Label& name,
                        std::initializer_list<Feature> features) {
    auto* row = new QHBoxLayout(box);
    row->addWidget(RigName(kit, box, nameObject, name));
    for (const Feature& feature : features)
        row->addWidget(kit.button(box, feature.name, *feature.model, feature.handler));
    row->addStretch();
    return row;
}

void BuildFt817(ViewKit& kit, QGroupBox* box) {
    Form1& f = kit.core().f;
    QHBoxLayout* row = FeatureRow(kit, box, "lblFT817", f.lblFT817, {});
    row->insertSpacing(1, 16);
    row->insertWidget(2, new QLabel("AGC", box));
    const auto options = kit.options(box, "optFT817AGC", f.optFT817AGC,
                                     {"Auto", "Fast", "Slow", "Off"}, optFT817AGC_Click);
    for (size_t i = 0; i < options.size(); ++i)
        row->insertWidget(3 + static_cast<int>(i), options[i]);
}

void BuildFt1000mp(ViewKit& kit, QGroupBox* box) {
    Form1& f = kit.core().f;
    // Bandwidths by button: 250 Hz, 500 Hz, 2.0 kHz, 2.4 kHz, 6 kHz.
    static const char* const kWidths[] = {"250", "500", "2.0k", "2.4k", "6k"};
    auto* grid = new QGridLayout(box);
    grid->addWidget(new QLabel("8.2 MHz filter", box), 0, 0);
    grid->addWidget(new QLabel("455 kHz filter", box), 1, 0);
    for (int i = 0; i < 5; ++i) {
        grid->addWidget(
            kit.button(
                box, QString("cmdFT1000MP_Filter_82_%1").arg(i), f.cmdFT1000MP_Filter_82[i],
                [i](Core& c) { cmdFT1000MP_Filter_82_Click(c, i); }, kWidths[i]),
            0, i + 1);
        grid->addWidget(
            kit.button(
                box, QString("cmdFT1000MP_Filter_455_%1").arg(i), f.cmdFT1000MP_Filter_455[i],
                [i](Core& c) { cmdFT1000MP_Filter_455_Click(c, i); }, kWidths[i]),
            1, i + 1);
    }
    grid->setColumnStretch(6, 1);
}

void BuildFt920(ViewKit& kit, QGroupBox* box) {
    Form1& f = kit.core().f;
    auto* row = new QHBoxLayout(box);
    // The VFO shapes: grey, red for transmit, green for receive.
    auto shape = [&](const char* name, const char* caption, const Colour& colour) {
        auto* s = new QLabel(caption, box);
        s->setObjectName(name);
        s->setAlignment(Qt::AlignCenter);
        s->setFrameShape(QFrame::Panel);
        s->setMinimumWidth(28);
        kit.onRender([s, &colour] {
            const QString style = StyleFor(colour);
            if (s->styleSheet() != style) s->setStyleSheet(style);
        });
        return s;
    };
    row->addWidget(new QLabel("VFO A", box));
    row->addWidget(shape("shpTxVfoA", "TX", f.shpTxVfoA));
    row->addWidget(shape("shpRxVfoA", "RX", f.shpRxVfoA));
    row->addSpacing(8);
    row->addWidget(new QLabel("VFO B", box));
    row->addWidget(shape("shpTxVfoB", "TX", f.shpTxVfoB));
    row->addWidget(shape("shpRxVfoB", "RX", f.shpRxVfoB));
    row->addSpacing(8);
    row->addWidget(new QLabel("Ant", box));
    row->addWidget(kit.light(box, "lblAnt", f.lblAnt));
    row->addWidget(kit.light(box, "lblRXant", f.lblRXant));
    row->addSpacing(8);
    row->addWidget(new QLabel("Dial", box));
    row->addWidget(kit.light(box, "lblTune", f.lblTune));
    row->addSpacing(8);
    row->addWidget(
        kit.button(box, "cmdFT920Tuner", f.cmdFT920Tuner, cmdFT920Tuner_Click, "Tuner in/out"));
    row->addWidget(
        kit.button(box, "cmdFT920StartTune", f.cmdFT920StartTune, cmdFT920StartTune_Click));
    row->addStretch();
}

void BuildFt450(ViewKit& kit, QGroupBox* box) {
    Form1& f = kit.core().f;
    auto* row = new QHBoxLayout(box);
    const QString toggle = " Click to toggle %1 On/Off ";
    row->addWidget(kit.labelButton(box, "lbl450Tuner", f.lbl450Tuner, lbl450Tuner_Click, {},
                                   toggle.arg("Tuner")));
    row->addWidget(
        kit.labelButton(box, "lbl450Att", f.lbl450Att, lbl450Att_Click, {}, toggle.arg("ATT")));
    row->addWidget(
        kit.labelButton(box, "lbl450Ipo", f.lbl450Ipo, lbl450Ipo_Click, {}, toggle.arg("IPO")));
    row->addSpacing(8);
    static const char* const kAgc[] = {"AGC Auto", "AGC Slow", "AGC Fast", "AGC Off"};
    for (int i = 0; i < 4; ++i) {
        row->addWidget(kit.labelButton(
            box, QString("lbl450AGC_%1").arg(i), f.lbl450AGC[i],
            [i](Core& c) { lbl450AGC_Click(c, i); }, kAgc[i]));
    }
    row->addSpacing(8);
    row->addWidget(kit.button(box, "cmd450Tune", f.cmd450Tune, cmd450Tune_Click));
    row->addWidget(kit.check(box, "chkShowDSP", f.chkShowDSP, chkShowDSP_Click));
    row->addStretch();
}

// The VR-5000's tuning steps of the mode in use.
void BuildVr5000Steps(ViewKit& kit, QGroupBox* box, const char* name,
                      std::span<OptionButton> options, const QStringList& captions,
                      void (*onClick)(Core&, int)) {
    auto* row = new QHBoxLayout(box);
    for (QRadioButton* option : kit.options(box, name, options, captions, onClick))
        row->addWidget(option);
    row->addStretch();
}

}  // namespace

QWidget* BuildModelFrames(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* frames = new QWidget(parent);
    auto* column = new QVBoxLayout(frames);
    column->setContentsMargins(0, 0, 0, 0);
    auto frame = [&](const Frame& model, const char* name) {
        QGroupBox* box = kit.frame(frames, name, model);
        column->addWidget(box);
        return box;
    };
    FeatureRow(kit, frame(f.frmFT897, "frmFT897"), "Label14", f.Label14,
               {{"cmdFT897Processor", &f.cmdFT897Processor, cmdFT897Processor_Click},
                {"cmdFT897NoiseBlanker", &f.cmdFT897NoiseBlanker, cmdFT897NoiseBlanker_Click},
                {"cmdFT897DNF", &f.cmdFT897DNF, cmdFT897DNF_Click},
                {"cmdFT897DNR", &f.cmdFT897DNR, cmdFT897DNR_Click},
                {"cmdFT897DBF", &f.cmdFT897DBF, cmdFT897DBF_Click},
                {"cmdFT897Fast", &f.cmdFT897Fast, cmdFT897Fast_Click},
                {"cmdFT897Lock", &f.cmdFT897Lock, cmdFT897Lock_Click}});
    FeatureRow(kit, frame(f.frmFT857, "frmFT857"), "Label18", f.Label18,
               {{"cmdFT857Processor", &f.cmdFT857Processor, cmdFT857Processor_Click},
                {"cmdFT857NoiseBlanker", &f.cmdFT857NoiseBlanker, cmdFT857NoiseBlanker_Click},
                {"cmdFT857DNF", &f.cmdFT857DNF, cmdFT857DNF_Click},
                {"cmdFT857DNR", &f.cmdFT857DNR, cmdFT857DNR_Click},
                {"cmdFT857DBF", &f.cmdFT857DBF, cmdFT857DBF_Click},
                {"cmdFT857Fast", &f.cmdFT857Fast, cmdFT857Fast_Click},
                {"cmdFT857Lock", &f.cmdFT857Lock, cmdFT857Lock_Click}});
    BuildFt817(kit, frame(f.frmFT817, "frmFT817"));
    QGroupBox* ft847 = frame(f.frmFT847, "frmFT847");
    auto* ft847Row = new QHBoxLayout(ft847);
    ft847Row->addWidget(kit.button(ft847, "cmdXBand", f.cmdXBand, cmdXBand_Click));
    ft847Row->addStretch();
    frame(f.frmFRG100, "frmFRG100");
    BuildFt1000mp(kit, frame(f.frmFT1000MP, "frmFT1000MP"));
    BuildFt920(kit, frame(f.frmFT920, "frmFT920"));
    BuildFt450(kit, frame(f.frmFT450, "frmFT450"));
    BuildVr5000Steps(kit, frame(f.frmVR5000LSB, "frmVR5000LSB"), "optLSBUSB", f.optLSBUSB,
                     {"20 Hz", "100 Hz", "500 Hz", "1 kHz", "5 kHz"}, optLSBUSB_Click);
    BuildVr5000Steps(kit, frame(f.frmVR5000AM, "frmVR5000AM"), "optAM", f.optAM,
                     {"1k", "5k", "9k", "10k", "20k", "25k", "50k", "100k", "500k"}, optAM_Click);
    BuildVr5000Steps(kit, frame(f.frmVR5000FMN, "frmVR5000FMN"), "optFMN", f.optFMN,
                     {"5k", "6.25k", "10k", "12.5k", "20k", "25k", "50k", "100k", "500k"},
                     optFMN_Click);
    BuildVr5000Steps(kit, frame(f.frmVR5000WFM, "frmVR5000WFM"), "optWFM", f.optWFM,
                     {"10k", "50k", "100k", "500k"}, optWFM_Click);
    return frames;
}

}  // namespace veldor
