#include "ui/main/menus.h"
#include "cycle/poll_cycle.h"
#include "cycle/start_stop.h"
#include "protocol/model_controls.h"
#include "protocol/transmit.h"
#include "ui/rig_sharing_dialog.h"

#include <QAction>
#include <QMainWindow>
#include <QMenuBar>

namespace veldor {

namespace {

// A menu item bound to a MenuItem of the main window: its caption, tick, enabled and visible
// state follow the item at every render.
QAction* Item(ViewKit& kit, QMenu* menu, const QString& name, MenuItem& item, Handler handler,
              bool checkable) {
    QAction* a = menu->addAction(item.caption);
    a->setObjectName(name);
    a->setCheckable(checkable);
    QObject::connect(a, &QAction::triggered, a, [&kit, handler] { kit.handle(handler); });
    kit.onRender([a, &item] {
        if (a->text() != item.caption) a->setText(item.caption);
        if (a->isChecked() != item.checked) a->setChecked(item.checked);
        if (a->isEnabled() != item.enabled) a->setEnabled(item.enabled);
        if (a->isVisible() != item.visible) a->setVisible(item.visible);
    });
    return a;
}

}  // namespace

void BuildMenus(ViewKit& kit, QMainWindow* window) {
    Form1& f = kit.core().f;
    QMenu* file = window->menuBar()->addMenu("&File");
    QAction* exit = file->addAction("E&xit");
    exit->setObjectName("mnuExit");
    QObject::connect(exit, &QAction::triggered, window, [window] { window->close(); });

    QMenu* options = window->menuBar()->addMenu("&Options");
    QAction* settings = options->addAction("&Settings...");
    settings->setObjectName("mnuSettings");
    QObject::connect(settings, &QAction::triggered, window, [&kit] { kit.handle(Form_DblClick); });
    QAction* sharing = options->addAction("Rig shari&ng...");
    sharing->setObjectName("mnuRigSharing");
    QObject::connect(sharing, &QAction::triggered, window, [&kit, window] {
        RigSharingDialog dialog(kit.core(), window);
        dialog.exec();
        kit.handle([](Core&) {});
    });
    Item(kit, options, "mnuFT817AGCmonitor", f.mnuFT817AGCmonitor, mnuFT817AGCmonitor_Click, true);
    Item(kit, options, "mnuRaiseDTR", f.mnuRaiseDTR, mnuRaiseDTR_Click, true);
    Item(kit, options, "mnuRaiseRTS", f.mnuRaiseRTS, mnuRaiseRTS_Click, true);
    Item(kit, options, "mnuLinkRTS", f.mnuLinkRTS, mnuLinkRTS_Click, true);
    Item(kit, options, "mnuTXRXcontrolsRTS", f.mnuTXRXcontrolsRTS, mnuTXRXcontrolsRTS_Click, true);
    options->addSeparator();

    // Polling: how often a full reading is made.
    QMenu* polling = options->addMenu("&Polling");
    polling->setObjectName("mnuPollingTitle");
    const struct {
        const char* name;
        MenuItem* item;
        int32_t delay;
    } rates[] = {{"mnuPollingOff", &f.mnuPollingOff, 99}, {"mnuPolling", &f.mnuPolling, 0},
                 {"mnuPolling02", &f.mnuPolling02, 200},  {"mnuPolling05", &f.mnuPolling05, 500},
                 {"mnuPolling1", &f.mnuPolling1, 1000},   {"mnuPolling2", &f.mnuPolling2, 2000},
                 {"mnuPolling5", &f.mnuPolling5, 5000},   {"mnuPolling10", &f.mnuPolling10, 10000}};
    for (const auto& rate : rates) {
        const int32_t delay = rate.delay;
        Item(
            kit, polling, rate.name, *rate.item, [delay](Core& c) { SetPollingDelay(c, delay); },
            true);
    }
    polling->addSeparator();
    QAction* now = polling->addAction("Update now");
    now->setObjectName("mnuPollingUpdateNow");
    now->setShortcut(Qt::Key_F3);
    QObject::connect(now, &QAction::triggered, now,
                     [&kit] { kit.handle(mnuPollingUpdateNow_Click); });

    // Talk speed: how often the poll tick runs.
    QMenu* talk = options->addMenu("&Talk speed");
    talk->setObjectName("mnuTalkSpeed");
    for (int i = 0; i < 5; ++i) {
        Item(
            kit, talk, QString("mnuTalk%1").arg(i + 1), f.mnuTalk[i],
            [i](Core& c) { mnuTalk_Click(c, i + 1); }, true);
    }
}

}  // namespace veldor
