#include "ui/main_window.h"

#include "cycle/start_stop.h"
#include "shell/screen_size.h"
#include "ui/main/groups.h"
#include "ui/main/menus.h"
#include "ui/messages_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QStyle>
#include <QVBoxLayout>

#include <array>
#include <memory>

namespace veldor {

namespace {

// The scroll area of the panel. A label whose text changes asks its layout again, and the
// area, told of it, sets its scroll bars afresh, which repaints them even when nothing changed:
// with every reading on a small screen. The bars follow only the panel's size limits, so a
// request that leaves those as they were needs nothing of the area.
class PanelScrollArea : public QScrollArea {
  public:
    using QScrollArea::QScrollArea;

  protected:
    bool event(QEvent* e) override {
        if (e->type() == QEvent::LayoutRequest && widget()) {
            const QWidget* w = widget();
            const std::array<QSize, 4> limits{w->minimumSizeHint(), w->sizeHint(), w->minimumSize(),
                                              w->maximumSize()};
            if (limits == limits_) return true;
            limits_ = limits;
        }
        return QScrollArea::event(e);
    }

  private:
    std::array<QSize, 4> limits_;
};

}  // namespace

namespace {
constexpr int kTwipsPerPixel = 15;
}  // namespace

MainWindow::MainWindow(Core& core, Views& views)
    : c_(core), kit_(core, views), messages_(new MessagesWindow(core, views)) {
    setObjectName("Form1");
    auto* central = new QWidget(this);
    auto* page = new QVBoxLayout(central);
    page->addWidget(BuildConnectionGroup(kit_, central));

    // Two columns: the rig, how it is tuned and the other windows on the left; transmit,
    // repeater, the memories, notes, scanning and the sweep on the right.
    auto* columns = new QHBoxLayout();
    auto* left = new QVBoxLayout();
    QWidget* frequency = BuildFrequencyGroup(kit_, central);
    // As on a rig, the wheel over the frequency display tunes.
    WheelTunes(kit_, frequency->findChild<QLineEdit*>("txtVfoA"));
    left->addWidget(frequency);
    left->addWidget(BuildModesGroup(kit_, central));
    left->addWidget(BuildMeterGroup(kit_, central));
    left->addWidget(BuildTuningGroup(kit_, central));
    left->addWidget(BuildBandsGroup(kit_, central));
    left->addWidget(BuildWindowsGroup(kit_, central));
    left->addWidget(BuildDelaysGroup(kit_, central));
    left->addStretch();
    auto* right = new QVBoxLayout();
    auto* keying = new QHBoxLayout();
    keying->addWidget(BuildTransmitGroup(kit_, central));
    keying->addWidget(BuildRepeaterGroup(kit_, central), 1);
    right->addLayout(keying);
    right->addWidget(BuildMemoriesGroup(kit_, central));
    right->addWidget(BuildNotesGroup(kit_, central));
    right->addWidget(BuildScanGroup(kit_, central));
    QWidget* spectrum = BuildSpectrumGroup(kit_, central);
    right->addWidget(spectrum);
    right->addStretch();
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);
    page->addLayout(columns);
    page->addWidget(BuildModelFrames(kit_, central));
    page->addStretch();
    // On a screen smaller than the window, the window takes the screen and its content scrolls.
    auto* scroll = new PanelScrollArea(this);
    scroll->setObjectName("scrollForm1");
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setAccessibleName("Rig panel");
    // Tab goes straight to the controls, and the area follows the focus.
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(central);
    setCentralWidget(scroll);
    BuildMenus(kit_, this);
    followSpectrumOnly(spectrum);

    kit_.onRender([this] {
        if (windowTitle() != c_.f.caption) setWindowTitle(c_.f.caption);
        messages_->render();
        if (FontScale(c_.s) != fontScale_) rescale(FontScale(c_.s));
    });
    render();
}

MainWindow::~MainWindow() {
    delete messages_;
}

// One factor for the fonts of every window, the mean of the two the screen size gives; the
// layouts then size each window around its text.
void MainWindow::rescale(double scale) {
    const double ratio = scale / fontScale_;
    fontScale_ = scale;
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * ratio);
    QApplication::setFont(font);
    // The boxes with a font of their own (the fixed-pitch displays) keep their face and grow too.
    for (QWidget* w : QApplication::allWidgets()) {
        if (w->testAttribute(Qt::WA_SetFont)) {
            QFont own = w->font();
            own.setPointSizeF(own.pointSizeF() * ratio);
            w->setFont(own);
        }
        // A control coloured by a style sheet keeps the type it was polished with until it is
        // polished again.
        if (!w->styleSheet().isEmpty()) {
            w->style()->unpolish(w);
            w->style()->polish(w);
        }
    }
    fitToScreen();
}

void MainWindow::fitToScreen() {
    auto* scroll = static_cast<QScrollArea*>(centralWidget());
    const QWidget* content = scroll->widget();
    QSize want = content->sizeHint();
    // Labels that wrap make the hinted height that of the narrowest layout.
    if (content->hasHeightForWidth()) want.setHeight(content->heightForWidth(want.width()));
    want.rheight() += menuBar()->sizeHint().height();
    if (statusBar()->isVisible()) want.rheight() += statusBar()->sizeHint().height();
    const QScreen* on = screen();
    if (!on) {
        resize(want);
        return;
    }
    // The screen less the window's frame and title (guessed before the window first shows).
    const QSize decoration = isVisible() ? frameGeometry().size() - size() : QSize(8, 32);
    const QSize room = on->availableGeometry().size() - decoration;
    // A scroll bar takes its room from the other direction.
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    if (want.height() > room.height()) want.rwidth() += bar;
    if (want.width() > room.width()) want.rheight() += bar;
    resize(want.boundedTo(room));
}

void MainWindow::followSpectrumOnly(QWidget* spectrum) {
    struct Compact {
        bool on = false;
        QSize before;
        QList<QWidget*> hidden;  // the groups hidden here, and no others
    };
    auto compact = std::make_shared<Compact>();
    kit_.onRender([this, spectrum, compact] {
        const bool only = c_.f.mnuSpectrumOnly.checked;
        QWidget* page = spectrum->parentWidget();
        if (!only && !compact->on) return;
        if (only && !compact->on) compact->before = size();
        // A render may have shown a group again: it steps aside at every render.
        bool changed = only != compact->on;
        if (only) {
            for (QWidget* w : page->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
                if (w == spectrum || w->isHidden()) continue;
                w->hide();
                if (!compact->hidden.contains(w)) compact->hidden << w;
                changed = true;
            }
        } else {
            for (QWidget* w : compact->hidden) w->show();
            compact->hidden.clear();
        }
        compact->on = only;
        if (!changed) return;
        // The layout learns of the hidden groups now rather than at its next turn, so that the
        // content's size is the frame's when it is asked for.
        page->layout()->activate();
        if (only)
            fitToScreen();
        else
            resize(compact->before);
    });
}

void MainWindow::place() {
    move(c_.f.left / kTwipsPerPixel, c_.f.top / kTwipsPerPixel);
}

void MainWindow::tellForm() {
    const QRect frame = frameGeometry();
    c_.f.left = frame.x() * kTwipsPerPixel;
    c_.f.top = frame.y() * kTwipsPerPixel;
    c_.f.width = frame.width() * kTwipsPerPixel;
    c_.f.height = frame.height() * kTwipsPerPixel;
}

void MainWindow::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    tellForm();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    tellForm();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange) return;
    c_.f.windowState = isMinimized() ? 1 : isMaximized() ? 2 : 0;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    c_.f.left = x() * kTwipsPerPixel;
    c_.f.top = y() * kTwipsPerPixel;
    Form_Unload(c_);
    // During a long job the unloading does nothing, and the window stays.
    if (c_.s.Transmitting || c_.s.SpectrumRunning || c_.s.ScanRunning) {
        event->ignore();
        return;
    }
    event->accept();
}

}  // namespace veldor
