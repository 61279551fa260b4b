#include "ui/record_window.h"

#include "accessories/recorder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

namespace veldor {

RecordWindow::RecordWindow(Core& c, Views& views, QWidget* parent)
    : QWidget(parent, Qt::Window), kit_(c, views) {
    setObjectName("frmRecord");
    FrmRecord& r = c.frmRecord;
    setWindowTitle(r.caption);
    auto* page = new QVBoxLayout(this);

    auto* formats = new QHBoxLayout;
    auto* rate = new QGroupBox("Sample rate", this);
    auto* rateRow = new QHBoxLayout(rate);
    for (QRadioButton* o : kit_.options(rate, "optFreq", r.optFreq, {}, optFreq_Click))
        rateRow->addWidget(o);
    auto* size = new QGroupBox("Sample size", this);
    auto* sizeRow = new QHBoxLayout(size);
    for (QRadioButton* o : kit_.options(size, "optBits", r.optBits, {}, optBits_Click))
        sizeRow->addWidget(o);
    formats->addWidget(rate);
    formats->addWidget(size);
    page->addLayout(formats);

    auto* inputRow = new QHBoxLayout;
    QLabel* input = kit_.label(this, "Label3", r.Label3);
    QComboBox* devices = kit_.combo(this, "Combo2", r.Combo2, {});
    devices->setPlaceholderText("<select soundcard>");
    devices->setMinimumContentsLength(24);
    input->setBuddy(devices);
    devices->setAccessibleName(r.Label3.caption);
    inputRow->addWidget(input);
    inputRow->addWidget(devices, 1);
    page->addLayout(inputRow);
    page->addWidget(kit_.check(this, "chkSquelch", r.chkSquelch, ShowRecordState));

    // The transport buttons, as a media control shows them.
    MediaControl& m = r.MMControl2;
    auto* transport = new QGroupBox("Recording", this);
    transport->setObjectName("MMControl2");
    transport->setToolTip(m.toolTip);
    auto* buttons = new QHBoxLayout(transport);
    buttons->addWidget(kit_.button(transport, "MMControl2_Rewind", m.Rewind, {}));
    buttons->addWidget(kit_.button(transport, "MMControl2_Play", m.Play, {}));
    QPushButton* pause = kit_.button(transport, "MMControl2_Pause", m.Pause, MMControl2_PauseClick);
    pause->setCheckable(true);
    buttons->addWidget(pause);
    buttons->addWidget(kit_.button(transport, "MMControl2_Stop", m.Stop, MMControl2_StopClick));
    buttons->addWidget(
        kit_.button(transport, "MMControl2_Record", m.Record, MMControl2_RecordClick));
    page->addWidget(transport);
    QLabel* state = kit_.label(this, "lblStatus", r.lblStatus);
    state->setFrameShape(QFrame::StyledPanel);
    page->addWidget(state);

    auto* row = new QHBoxLayout;
    row->addWidget(kit_.button(this, "recOpen", r.recOpen, recOpen_Click));
    row->addWidget(kit_.button(this, "recSave", r.recSave, recSave_Click));
    row->addStretch();
    row->addWidget(kit_.button(this, "cmdPlayer", r.cmdPlayer, cmdPlayer_Click));
    row->addWidget(kit_.button(this, "cmdVolume", r.cmdVolume, cmdVolume_Click));
    row->addStretch();
    row->addWidget(kit_.button(this, "cmdClose", r.cmdClose, cmdClose_Click));
    page->addLayout(row);

    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, [this] { kit_.handle(cmdClose_Click); });
    // The length of the take, and anything the sound card has to tell, as it comes.
    auto* tmrRecordState = new QTimer(this);
    connect(tmrRecordState, &QTimer::timeout, this, [this] { kit_.handle(ShowRecordState); });
    tmrRecordState->start(500);
    kit_.render();
}

void RecordWindow::closeEvent(QCloseEvent* event) {
    // Closed by its title bar as by its Close button.
    if (kit_.core().s.RecorderOpen) kit_.handle(frmRecord_Unload);
    QWidget::closeEvent(event);
}

}  // namespace veldor
