#include "ui/main/menus.h"

#include "cycle/poll_cycle.h"
#include "cycle/shell_menus.h"
#include "cycle/start_stop.h"
#include "grid/grid.h"
#include "memories/banks.h"
#include "memories/memory_tag.h"
#include "protocol/model_controls.h"
#include "protocol/transmit.h"
#include "scan/scan_engine.h"
#include "scan/spectrum.h"
#include "tuning/go_to.h"
#include "tuning/transverter.h"
#include "ui/rig_sharing_dialog.h"

#include <QAction>
#include <QMainWindow>
#include <QMenuBar>

namespace veldor {

namespace {

// An item of the menu tree: its control name, its model, its key and its handler. An item
// with no handler stands disabled.
struct Entry {
    QString name;
    MenuItem* item;
    Handler handler;
    QKeySequence key = {};
    bool checkable = false;
};

// A menu item bound to a MenuItem of the main window: its caption, tick, enabled and visible
// state follow the item at every render.
QAction* Item(ViewKit& kit, QMenu* menu, const Entry& e) {
    QAction* a = menu->addAction(e.item->caption);
    a->setObjectName(e.name);
    a->setCheckable(e.checkable);
    if (!e.key.isEmpty()) a->setShortcut(e.key);
    const bool wired = static_cast<bool>(e.handler);
    if (wired) {
        QObject::connect(a, &QAction::triggered, a,
                         [&kit, handler = e.handler] { kit.handle(handler); });
    }
    MenuItem& item = *e.item;
    kit.onRender([a, &item, wired] {
        if (a->text() != item.caption) a->setText(item.caption);
        if (a->isChecked() != item.checked) a->setChecked(item.checked);
        const bool enabled = wired && item.enabled;
        if (a->isEnabled() != enabled) a->setEnabled(enabled);
        if (a->isVisible() != item.visible) a->setVisible(item.visible);
    });
    return a;
}

void Items(ViewKit& kit, QMenu* menu, std::initializer_list<Entry> entries) {
    for (const Entry& e : entries) Item(kit, menu, e);
}

QMenu* Menu(QMenuBar* bar, const char* name, const char* caption) {
    QMenu* menu = bar->addMenu(caption);
    menu->setObjectName(name);
    return menu;
}

QMenu* Submenu(QMenu* parent, const char* name, const char* caption) {
    QMenu* menu = parent->addMenu(caption);
    menu->setObjectName(name);
    return menu;
}

// Shift+F1 .. Shift+F12 and Ctrl+F1 .. Ctrl+F12 work the twelve memories, but M10 has no key:
// F10 is left to the window system.
QKeySequence MemoryKey(Qt::KeyboardModifier modifier, int memory) {
    if (memory == 10) return {};
    return QKeySequence(modifier | static_cast<Qt::Key>(Qt::Key_F1 + memory - 1));
}

}  // namespace

void BuildMenus(ViewKit& kit, QMainWindow* window) {
    Form1& f = kit.core().f;
    QMenuBar* bar = window->menuBar();

    QMenu* file = Menu(bar, "mnuFile", "&File");
    QAction* exit = file->addAction(f.mnuExit.caption);
    exit->setObjectName("mnuExit");
    QObject::connect(exit, &QAction::triggered, window, [window] { window->close(); });

    Items(kit, Menu(bar, "mnuView", "&View"),
          {{"mnuSpectrumOnly", &f.mnuSpectrumOnly, mnuSpectrumOnly_Click, Qt::Key_F2, true}});
    Items(kit, Menu(bar, "mnuEdit", "&Edit"),
          {{"mnuAddToGrid", &f.mnuAddToGrid, mnuAddToGrid_Click, Qt::Key_F4}});
    Items(kit, Menu(bar, "mnuTools", "&Tools"),
          {{"mnuConvert", &f.mnuConvert, mnuConvert_Click},
           {"mnuResetMemoryGridPosition", &f.mnuResetMemoryGridPosition,
            mnuResetMemoryGridPosition_Click}});

    QMenu* options = Menu(bar, "mnuOptionsMenu", "&Options");
    Items(kit, options,
          {{"mnuSettings", &f.mnuSettings, mnuSettings_Click},
           {"mnuFT817AGCmonitor", &f.mnuFT817AGCmonitor, mnuFT817AGCmonitor_Click, {}, true},
           {"mnuRaiseDTR", &f.mnuRaiseDTR, mnuRaiseDTR_Click, {}, true},
           {"mnuRaiseRTS", &f.mnuRaiseRTS, mnuRaiseRTS_Click, {}, true},
           {"mnuLinkRTS", &f.mnuLinkRTS, mnuLinkRTS_Click, {}, true},
           {"mnuTXRXcontrolsRTS", &f.mnuTXRXcontrolsRTS, mnuTXRXcontrolsRTS_Click, {}, true}});
    // Rig sharing: other programs reach the rig through Hamlib's network protocol.
    QAction* sharing = options->addAction("Rig shari&ng...");
    sharing->setObjectName("mnuRigSharing");
    QObject::connect(sharing, &QAction::triggered, window, [&kit, window] {
        RigSharingDialog dialog(kit.core(), window);
        dialog.exec();
        kit.handle([](Core&) {});
    });
    options->addSeparator()->setObjectName("mnuOptionsLine1");

    // Polling: how often a full reading is made.
    QMenu* polling = Submenu(options, "mnuPollingTitle", "&Polling");
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
        Item(kit, polling,
             {rate.name, rate.item, [delay](Core& c) { SetPollingDelay(c, delay); }, {}, true});
    }
    polling->addSeparator();
    Item(kit, polling,
         {"mnuPollingUpdateNow", &f.mnuPollingUpdateNow, mnuPollingUpdateNow_Click, Qt::Key_F3});

    Items(kit, Submenu(options, "mnuHangDelay", "&Hang delay"),
          {{"mnuHangDelay2", &f.mnuHangDelay2, [](Core& c) { SetHangDelay(c, 2); }, {}, true},
           {"mnuHangDelay4", &f.mnuHangDelay4, [](Core& c) { SetHangDelay(c, 4); }, {}, true},
           {"mnuHangDelay8", &f.mnuHangDelay8, [](Core& c) { SetHangDelay(c, 8); }, {}, true},
           {"mnuHangDelay16", &f.mnuHangDelay16, [](Core& c) { SetHangDelay(c, 16); }, {}, true},
           {"mnuHangDelayPerm",
            &f.mnuHangDelayPerm,
            [](Core& c) { SetHangDelay(c, HangDelayPermanent); },
            {},
            true},
           {"mnuHangDelayOnSignalLoss",
            &f.mnuHangDelayOnSignalLoss,
            mnuHangDelayOnSignalLoss_Click,
            {},
            true}});

    // Talk speed: how often the poll tick runs.
    QMenu* talk = Submenu(options, "mnuTalkSpeed", "&Talk speed");
    for (int i = 0; i < 5; ++i) {
        Item(kit, talk,
             {QString("mnuTalk%1").arg(i + 1),
              &f.mnuTalk[i],
              [i](Core& c) { mnuTalk_Click(c, i + 1); },
              {},
              true});
    }
    QMenu* scanSpeed = Submenu(options, "mnuScanSpeed", "S&can speed");
    for (int i = 0; i < 5; ++i)
        Item(kit, scanSpeed,
             {QString("mnuScanSpeed%1").arg(i + 1),
              &f.mnuScanSpeed[i],
              [i](Core& c) { mnuScanSpeed_Click(c, i + 1); },
              {},
              true});
    Items(kit, options, {{"mnuUseSquelch", &f.mnuUseSquelch, mnuUseSquelch_Click, {}, true}});
    options->addSeparator()->setObjectName("mnuOptionsLine2");
    Items(kit, options,
          {{"mnuXvtr", &f.mnuXvtr, mnuXvtr_Click, Qt::Key_F5, true},
           {"mnuMemoryTag", &f.mnuMemoryTag, mnuMemoryTag_Click, Qt::Key_F6, true},
           {"mnuShowLargeGoTo", &f.mnuShowLargeGoTo, mnuShowLargeGoTo_Click, Qt::Key_F7, true}});

    QMenu* clickSet = Menu(bar, "mnuClickSet", "ClickSet");
    QMenu* set = Submenu(clickSet, "mnuSet", "Set");
    QMenu* goTo = Submenu(clickSet, "mnuGoTo", "GoTo");
    for (int m = 1; m <= 12; ++m) {
        Item(kit, set,
             {QString("mnuSetM%1").arg(m), &f.mnuSetM[m - 1], [m](Core& c) { mnuSetM_Click(c, m); },
              MemoryKey(Qt::ShiftModifier, m)});
        Item(kit, goTo,
             {QString("mnuGoToM%1").arg(m), &f.mnuGoToM[m - 1],
              [m](Core& c) { mnuGoToM_Click(c, m); }, MemoryKey(Qt::ControlModifier, m)});
    }

    Items(kit, Menu(bar, "mnuScan", "Scan"),
          {{"mnuStart", &f.mnuStart, mnuStart_Click, QKeySequence(Qt::CTRL | Qt::Key_S)},
           {"mnuStop", &f.mnuStop, mnuStop_Click, QKeySequence(Qt::CTRL | Qt::Key_T)},
           {"mnuHold", &f.mnuHold, mnuHold_Click, QKeySequence(Qt::CTRL | Qt::Key_H)},
           {"mnuResume", &f.mnuResume, mnuResume_Click, QKeySequence(Qt::CTRL | Qt::Key_R)}});

    Items(kit, Menu(bar, "mnuHelpTitle", "Help"),
          {{"mnuHelp", &f.mnuHelp, mnuHelp_Click, Qt::Key_F1},
           {"mnuAbout", &f.mnuAbout, mnuAbout_Click}});
}

}  // namespace veldor
