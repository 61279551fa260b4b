#include "ui/main_window.h"

#include "cycle/start_stop.h"
#include "ui/main/groups.h"
#include "ui/main/menus.h"
#include "ui/messages_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QVBoxLayout>

namespace veldor {

namespace {
constexpr int kTwipsPerPixel = 15;
}  // namespace

MainWindow::MainWindow(Core& core, Views& views)
    : c_(core), kit_(core, views), messages_(new MessagesWindow(core)) {
    setObjectName("Form1");
    auto* central = new QWidget(this);
    auto* column = new QVBoxLayout(central);
    column->addWidget(BuildConnectionGroup(kit_, central));

    // The operating area: frequency and modes on the left, transmit and repeater beside them.
    auto* operating = new QGridLayout();
    operating->setColumnStretch(0, 1);
    operating->addWidget(BuildFrequencyGroup(kit_, central), 0, 0);
    operating->addWidget(BuildTransmitGroup(kit_, central), 0, 1);
    operating->addWidget(BuildModesGroup(kit_, central), 1, 0);
    operating->addWidget(BuildRepeaterGroup(kit_, central), 1, 1);
    column->addLayout(operating);

    column->addWidget(BuildMeterGroup(kit_, central));
    column->addWidget(BuildModelFrames(kit_, central));
    column->addWidget(BuildDelaysGroup(kit_, central));
    column->addStretch();
    setCentralWidget(central);
    BuildMenus(kit_, this);

    kit_.onRender([this] {
        if (windowTitle() != c_.f.caption) setWindowTitle(c_.f.caption);
        messages_->render();
    });
    render();
}

MainWindow::~MainWindow() {
    delete messages_;
}

void MainWindow::place() {
    move(c_.f.left / kTwipsPerPixel, c_.f.top / kTwipsPerPixel);
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
