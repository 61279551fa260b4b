#include "cycle/poll_cycle.h"
#include "ui/main/groups.h"

#include <QFontDatabase>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QProgressBar>
#include <QVBoxLayout>

namespace veldor {

namespace {

// A press on the threshold bar sets the level at which a signal counts.
class ThresholdPress : public QObject {
  public:
    ThresholdPress(ViewKit& kit, QProgressBar* bar) : QObject(bar), kit_(kit), bar_(bar) {
        bar->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != bar_ || event->type() != QEvent::MouseButtonPress) return false;
        const int x = static_cast<int>(static_cast<QMouseEvent*>(event)->position().x());
        const int width = bar_->width();
        kit_.handle([x, width](Core& c) { pbarGotSignal_MouseDown(c, x, width); });
        return true;
    }

  private:
    ViewKit& kit_;
    QProgressBar* bar_;
};

}  // namespace

QWidget* BuildMeterGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox("S-meter", parent);
    // The scale in fixed-pitch type over a bar of the same width, so that each mark stands over
    // its level.
    auto* scale = new QLabel("..1...3...5...7...9   20  40 60", box);
    scale->setObjectName("Label1");
    QFont scaleFont = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    scaleFont.setPointSize(scaleFont.pointSize() + 3);
    scale->setFont(scaleFont);
    QProgressBar* smeter = kit.bar(box, "pbarSmeter", f.pbarSmeter);
    auto* gotSignalText = new QLabel("Click below to set 'got a signal' s-meter level", box);
    gotSignalText->setObjectName("lblGotSignal");
    QProgressBar* threshold = kit.bar(box, "pbarGotSignal", f.pbarGotSignal);
    threshold->setMaximumHeight(10);
    // Both bars as wide as the scale, also when the type is rescaled.
    const auto fit = [scale, smeter, threshold] {
        const int width = scale->fontMetrics().horizontalAdvance(scale->text()) + 4;
        smeter->setFixedWidth(width);
        threshold->setFixedWidth(width);
    };
    fit();
    OnEvent(scale, [fit](QEvent* e) {
        if (e->type() == QEvent::FontChange) fit();
        return false;
    });
    new ThresholdPress(kit, threshold);
    auto* bars = new QVBoxLayout();
    bars->addWidget(scale);
    bars->addWidget(smeter);
    bars->addWidget(gotSignalText);
    bars->addWidget(threshold);
    // The state lights beside the bars.
    auto* lights = new QHBoxLayout();
    for (auto [name, model] : {std::pair<const char*, Label*>{"lblTX", &f.lblTX},
                               {"lblRX", &f.lblRX},
                               {"lblSQL", &f.lblSQL},
                               {"lblDCS", &f.lblDCS},
                               {"lblDISC", &f.lblDISC}})
        lights->addWidget(kit.light(box, name, *model), 0, Qt::AlignVCenter);
    auto* row = new QHBoxLayout(box);
    row->addLayout(bars);
    row->addSpacing(24);
    row->addLayout(lights);
    row->addStretch();
    return box;
}

}  // namespace veldor
