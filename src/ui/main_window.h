// The main window: renders Form1 into widgets whose object names are the control names, and
// forwards each user event to the handler of the same name. It holds no logic.
#pragma once

#include "link/core.h"

#include <QMainWindow>

#include <array>
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
class QGridLayout;
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
    // A widget shown from a control of Form1. The fallback caption stands in while the
    // control's own is empty; an unwired widget has no handler and always looks disabled.
    struct ButtonView {
        QPushButton* widget;
        const CommandButton* model;
        QString fallback;
        QString tipSuffix;
        bool wired;
    };
    struct LabelView {
        QLabel* widget;
        const Label* model;
    };
    struct LabelButtonView {
        QPushButton* widget;
        const Label* model;
        QString fallback;
        QString fallbackTip;
    };
    struct OptionView {
        QRadioButton* widget;
        const OptionButton* model;
        QString fallback;
        bool wired;
    };

    // Runs a handler, then shows its effect.
    void handle(const std::function<void(Core&)>& handler);
    void buildMenus();
    // A widget for a control of Form1, connected to its handler.
    QPushButton* button(QWidget* parent, const QString& name, CommandButton& model,
                        std::function<void(Core&)> onClick, const QString& fallback = {});
    QPushButton* labelButton(QWidget* parent, const QString& name, Label& model,
                             std::function<void(Core&)> onClick, const QString& fallback = {},
                             const QString& fallbackTip = {});
    QLabel* light(QWidget* parent, const char* name, Label& model);
    QRadioButton* option(QWidget* parent, const QString& name, OptionButton& model,
                         const QString& fallback, std::function<void()> onClick);
    QCheckBox* check(QWidget* parent, const char* name, CheckBox& model, void (*onClick)(Core&));
    // Puts the visible mode buttons in rows, with no gaps where the rig has no button.
    void arrangeModeButtons();

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
    QLabel* shiftLabel_;
    QComboBox* cboCTCSS_;
    QStringList shownTones_;
    QCheckBox* chkShowDSP_;
    QCheckBox* chkSliders_;
    QSlider* sldCMDdelay_;
    QSlider* sldSmeterDelay_;
    QSlider* sldExtra_;
    QLabel* lblCmdDelay_;
    QLabel* lblAGCdelay_;
    QLabel* lblExtra_;
    QGridLayout* modeGrid_;
    std::array<QWidget*, 12> modeCells_{};
    std::array<bool, 12> modeShown_{};
    std::vector<ButtonView> buttons_;
    std::vector<LabelView> labels_;
    std::vector<LabelButtonView> labelButtons_;
    std::vector<OptionView> options_;
    std::vector<std::pair<QGroupBox*, const Frame*>> frames_;
    std::vector<std::pair<QLabel*, const Colour*>> shapes_;
    std::vector<std::pair<QAction*, MenuItem*>> menuItems_;
    bool rendering_ = false;
};

}  // namespace veldor
