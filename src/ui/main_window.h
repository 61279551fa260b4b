// The main window: renders Form1 into widgets whose object names are the control names, and
// forwards each user event to the handler of the same name. It holds no logic.
#pragma once

#include "link/core.h"

#include <QMainWindow>

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QRadioButton;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QSlider;
class QGroupBox;
class QAction;

namespace veldor {

class MessagesWindow;

class MainWindow : public QMainWindow {
  public:
    explicit MainWindow(Core& core);
    ~MainWindow() override;

    // Shows the state the core has reached.
    void render();
    // Puts the window where Form1 says.
    void place();
    MessagesWindow* messagesWindow() { return messages_; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // Runs a handler, then shows its effect.
    void handle(const std::function<void(Core&)>& handler);
    void buildMenus();
    // A widget for a control of Form1, connected to its handler.
    QPushButton* button(QWidget* parent, const char* name, CommandButton& model,
                        std::function<void(Core&)> onClick);
    QPushButton* labelButton(QWidget* parent, const char* name, Label& model,
                             std::function<void(Core&)> onClick);
    QCheckBox* check(QWidget* parent, const char* name, CheckBox& model, void (*onClick)(Core&));

    Core& c_;
    MessagesWindow* messages_;
    QCheckBox* chkOnOff_;
    QLabel* lblTimeoutCount_;
    QLabel* lblUTC_;
    QPushButton* cmdTenMinCounter_;
    QLineEdit* txtVfoA_;
    QLineEdit* txtMode_;
    QLabel* lblRigMode_;
    QProgressBar* pbarSmeter_;
    QProgressBar* pbarGotSignal_;
    QCheckBox* chkTransmitEnable_;
    QCheckBox* chkSplit_;
    QPushButton* cmdStartStopScan_;
    QPushButton* cmdScanMemOrBank_;
    QComboBox* cboCTCSS_;
    QLabel* lblNarrow_;
    QCheckBox* chkShowDSP_;
    QCheckBox* chkSliders_;
    QSlider* sldCMDdelay_;
    QSlider* sldSmeterDelay_;
    QSlider* sldExtra_;
    QLabel* lblCmdDelay_;
    QLabel* lblAGCdelay_;
    QLabel* lblExtra_;
    std::vector<std::pair<QPushButton*, CommandButton*>> modelButtons_;
    std::vector<std::pair<QPushButton*, Label*>> labelButtons_;
    std::vector<std::pair<QGroupBox*, const Frame*>> frames_;
    std::vector<std::pair<QLabel*, Label*>> rigNames_;
    std::vector<std::pair<QRadioButton*, OptionButton*>> options_;
    std::vector<std::pair<QAction*, MenuItem*>> menuItems_;
    std::vector<std::pair<QLabel*, Label*>> lights_;
    bool rendering_ = false;
};

}  // namespace veldor
