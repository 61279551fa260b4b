#include "ui/xband_window.h"

#include "accessories/xband_repeat.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

namespace veldor {

namespace {

using DigitHandler = void (*)(Core&, int);

// The frequency in large fixed-pitch type, with a button above and below each digit. The
// display reads "145.000.00": the digits stand in columns 0-2, 4-6 and 8-9.
QGroupBox* FrequencyBox(ViewKit& kit, QWidget* parent, const Frame& frame, const char* frameName,
                        const char* boxName, TextBox& box, const char* side,
                        std::array<CommandButton, 8>& plus, DigitHandler onPlus,
                        std::array<CommandButton, 8>& minus, DigitHandler onMinus) {
    static constexpr int kDigitColumn[] = {0, 1, 2, 4, 5, 6, 8, 9};
    QGroupBox* group = kit.frame(parent, frameName, frame);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSize(20);
    const int column = QFontMetrics(font).horizontalAdvance('0');
    auto* grid = new QGridLayout();
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(2);
    QLineEdit* display = kit.textBox(group, boxName, box);
    display->setFont(font);
    display->setReadOnly(true);
    display->setFrame(false);
    display->setTextMargins(0, 0, 0, 0);
    display->setAccessibleName(frame.caption.trimmed());
    grid->addWidget(display, 1, 0, 1, 10);
    for (int i = 0; i < 8; ++i) {
        auto digit = [&](std::array<CommandButton, 8>& models, DigitHandler handler, int row,
                         const char* kind, const char* caption) {
            QPushButton* b = kit.button(
                group, QString("cmdFreq%1%2_%3").arg(side, kind).arg(i),
                models[static_cast<size_t>(i)], [handler, i](Core& c) { handler(c, i); }, caption);
            b->setFixedWidth(column);
            b->setFocusPolicy(Qt::TabFocus);
            grid->addWidget(b, row, kDigitColumn[i]);
        };
        digit(plus, onPlus, 0, "Plus", "+");
        digit(minus, onMinus, 2, "Minus", "-");
    }
    for (int col = 0; col < 10; ++col) grid->setColumnMinimumWidth(col, column);
    // The line edit draws its text a little in from its edge; the buttons follow it.
    auto* inset = new QHBoxLayout(group);
    inset->addSpacing(2);
    inset->addLayout(grid);
    inset->addStretch();
    return group;
}

}  // namespace

XBandWindow::XBandWindow(Core& core, Views& views, QWidget* parent)
    : QDialog(parent), c_(core), kit_(core, views) {
    setObjectName("frmXBandRepeat");
    FrmXBandRepeat& x = c_.frmXBandRepeat;
    setWindowTitle(x.caption);

    // Its lines are broken where the text breaks them.
    QLabel* help = kit_.label(this, "Label1", x.Label1);
    auto* page = new QVBoxLayout(this);
    page->addWidget(help);

    auto* boxes = new QHBoxLayout();
    boxes->addWidget(FrequencyBox(kit_, this, x.fraVHF, "fraVHF", "txtVfoA", x.txtVfoA, "A",
                                  x.cmdFreqAPlus, frmXBandRepeat_cmdFreqAPlus_Click,
                                  x.cmdFreqAMinus, frmXBandRepeat_cmdFreqAMinus_Click));
    boxes->addWidget(FrequencyBox(kit_, this, x.fraUHF, "fraUHF", "txtVFOB", x.txtVFOB, "B",
                                  x.cmdFreqBPlus, frmXBandRepeat_cmdFreqBPlus_Click,
                                  x.cmdFreqBMinus, frmXBandRepeat_cmdFreqBMinus_Click));
    page->addLayout(boxes);

    auto* speed = new QHBoxLayout();
    QSlider* slider = kit_.slider(this, "Slider1", x.Slider1, [](Core&) {});
    slider->setPageStep(1);
    auto* speedLabel = new QLabel("S&witching speed", this);
    speedLabel->setBuddy(slider);
    slider->setAccessibleName("Switching speed");
    speed->addWidget(speedLabel);
    speed->addWidget(new QLabel("slow", this));
    speed->addWidget(slider, 1);
    speed->addWidget(new QLabel("fast", this));
    page->addLayout(speed);

    auto* buttons = new QHBoxLayout();
    QPushButton* start = kit_.button(this, "cmdStart", x.cmdStart, frmXBandRepeat_cmdStart_Click);
    start->setDefault(true);
    buttons->addWidget(start);
    buttons->addWidget(kit_.button(this, "cmdStop", x.cmdStop, frmXBandRepeat_cmdStop_Click));
    buttons->addStretch();
    buttons->addWidget(kit_.button(this, "cmdExit", x.cmdExit, frmXBandRepeat_cmdExit_Click));
    page->addLayout(buttons);
    kit_.render();
}

void XBandWindow::reject() {
    // Escape and the title bar's close unload the form as Exit does.
    if (c_.frmXBandRepeat.loaded) kit_.handle(frmXBandRepeat_Unload);
    QDialog::reject();
}

}  // namespace veldor
