#include "ui/dsp_panel.h"

#include "accessories/dsp_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

namespace veldor {

namespace {

Frm450DSP& Form(Core& c) {
    return c.frm450DSP;
}

}  // namespace

DspPanel::DspPanel(Core& core, Views& views, QWidget* parent)
    : DockedPanel(core, views, parent,
                  {&Form(core).left, &Form(core).top, &Form(core).width, &Form(core).height,
                   &Form(core).loaded, frm450DSP_cmdClose_Click}) {
    setObjectName("frm450DSP");
    Frm450DSP& d = Form(core);
    ViewKit& k = kit();
    setWindowTitle(d.caption);

    auto* page = new QVBoxLayout(this);
    auto* head = new QHBoxLayout();
    QLabel* title = k.label(this, "Label15", d.Label15);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    head->addWidget(title);
    head->addStretch();
    head->addWidget(k.light(this, "lbl450Mode", d.lbl450Mode));
    head->addWidget(k.button(this, "cmdVM", d.cmdVM, cmdVM_Click));
    page->addLayout(head);

    // The functions: green on, white off; a click asks the rig for the other state.
    auto* lights = new QGridLayout();
    lights->addWidget(
        k.labelButton(this, "lbl450NoiseBlanker", d.lbl450NoiseBlanker, lbl450NoiseBlanker_Click),
        0, 0);
    lights->addWidget(k.labelButton(this, "lbl450NoiseReduction", d.lbl450NoiseReduction,
                                    lbl450NoiseReduction_Click),
                      0, 1);
    lights->addWidget(k.labelButton(this, "lbl450Notch", d.lbl450Notch, lbl450Notch_Click, "Notch"),
                      1, 0);
    lights->addWidget(k.labelButton(this, "lblSqlRFGain", d.lblSqlRFGain, lblSqlRFGain_Click), 1,
                      1);
    page->addLayout(lights);

    // The sliders: while the mouse holds one, the poll leaves them all alone.
    auto* sliders = new QGridLayout();
    int row = 0;
    auto addSlider = [&](const char* name, Slider& model, void (*onChange)(Core&),
                         const QString& caption) {
        QSlider* s = k.slider(this, name, model, onChange);
        s->setAccessibleName(PlainCaption(caption));
        connect(s, &QSlider::sliderPressed, s, [&k] { k.handle(DspSlider_MouseDown); });
        connect(s, &QSlider::sliderReleased, s, [&k] { k.handle(DspSlider_MouseUp); });
        auto* label = new QLabel(caption, this);
        label->setBuddy(s);
        sliders->addWidget(label, row, 0);
        sliders->addWidget(s, row, 1);
        ++row;
        return s;
    };
    addSlider("sldNoiseReduction", d.sldNoiseReduction, sldNoiseReduction_Change,
              "&Noise reduction level");
    addSlider("sldNotch", d.sldNotch, sldNotch_Change, "Notc&h frequency");
    QLabel* filter = k.light(this, "lbl450Filter", d.lbl450Filter);
    filter->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    sliders->addWidget(filter, row++, 1);
    QSlider* width = addSlider("sldFilter", d.sldFilter, sldFilter_Change, "&Width");
    width->setPageStep(1);
    width->setTickPosition(QSlider::TicksBelow);
    addSlider("sldAFGain", d.sldAFGain, sldAFGain_Change, "&AF Gain");
    addSlider("sldRFGain", d.sldRFGain, sldRFGain_Change, "&RF Gain");
    page->addLayout(sliders);

    // The two contour scales, members 1 to 5 from the left.
    auto addScale = [&](const char* name, std::array<Label, 6>& models, void (*onClick)(Core&, int),
                        const QString& caption) {
        page->addWidget(new QLabel(caption, this));
        auto* scale = new QHBoxLayout();
        scale->setSpacing(2);
        for (int i = 1; i <= 5; ++i) {
            scale->addWidget(k.labelButton(this, QString("%1_%2").arg(name).arg(i),
                                           models[static_cast<size_t>(i)],
                                           [onClick, i](Core& c) { onClick(c, i); }));
        }
        page->addLayout(scale);
    };
    addScale("lblContour", d.lblContour, lblContour_Click, "Contour level");
    addScale("lblContourFreq", d.lblContourFreq, lblContourFreq_Click, "Contour frequency");

    auto* buttons = new QHBoxLayout();
    buttons->addWidget(
        k.button(this, "cmdDockLeft", d.cmdDockLeft, frm450DSP_cmdDockLeft_Click, "Dock &left"));
    buttons->addWidget(k.button(this, "cmdDockRight", d.cmdDockRight, frm450DSP_cmdDockRight_Click,
                                "Dock r&ight"));
    buttons->addStretch();
    buttons->addWidget(k.button(this, "cmdClose", d.cmdClose, frm450DSP_cmdClose_Click, "&Close"));
    page->addStretch();
    page->addLayout(buttons);
    k.render();
}

}  // namespace veldor
