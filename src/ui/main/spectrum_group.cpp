#include "scan/spectrum.h"
#include "ui/main/groups.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

namespace veldor {

namespace {

QColor ColourOf(Colour colour, const QWidget* w) {
    if (colour & 0x80000000u) return w->palette().button().color();
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

int MouseButton(Qt::MouseButtons buttons) {
    if (buttons & Qt::LeftButton) return SpectrumLeft;
    if (buttons & Qt::RightButton) return SpectrumRight;
    return buttons & Qt::MiddleButton ? 4 : 0;
}

int ShiftState(Qt::KeyboardModifiers m) {
    return (m & Qt::ShiftModifier ? 1 : 0) | (m & Qt::ControlModifier ? CtrlMask : 0) |
           (m & Qt::AltModifier ? 4 : 0);
}

// The trace. Each stroke the core adds is drawn once into the image, and only the strip it
// touched is repainted; painting copies the image and never draws a bar again.
class SpectrumPicture : public QWidget {
  public:
    SpectrumPicture(ViewKit& kit, QWidget* parent)
        : QWidget(parent), kit_(kit), image_(420, 128, QImage::Format_RGB32) {
        setObjectName("picSpectrum");
        setFixedSize(image_.size());
        setCursor(Qt::CrossCursor);
        setMouseTracking(true);
        setContextMenuPolicy(Qt::PreventContextMenu);
        setAttribute(Qt::WA_OpaquePaintEvent);
        image_.fill(ColourOf(ButtonFace, this));
        SetAccessible(this, "Spectrum", " Frequency of hairline cross in spectrum display ");
        kit.onRender([this] { drawStrokes(); });
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.drawImage(event->rect(), image_, event->rect());
    }
    void mousePressEvent(QMouseEvent* e) override {
        send([b = MouseButton(e->button()), s = ShiftState(e->modifiers()),
              x = scaleX(e)](Core& c) { picSpectrum_MouseDown(c, b, s, x); });
    }
    void mouseMoveEvent(QMouseEvent* e) override {
        send([b = MouseButton(e->buttons()), s = ShiftState(e->modifiers()),
              x = scaleX(e)](Core& c) { picSpectrum_MouseMove(c, b, s, x); });
    }
    void mouseReleaseEvent(QMouseEvent*) override { send(picSpectrum_MouseUp); }

  private:
    void send(const Handler& handler) {
        if (!kit_.rendering()) kit_.handle(handler);
    }
    double scaleX(const QMouseEvent* e) const {
        const PictureBox& p = kit_.core().f.picSpectrum;
        return e->position().x() * p.scaleWidth / (width() - 1);
    }
    void drawStrokes() {
        PictureBox& p = kit_.core().f.picSpectrum;
        if (p.strokes.empty()) return;
        QPainter painter(&image_);
        QRect dirty;
        const double xScale = p.scaleWidth > 0 ? double(width() - 1) / p.scaleWidth : 0;
        const double yScale = double(height()) / p.scaleHeight;
        for (const PictureBox::Stroke& s : p.strokes) {
            if (s.clear) {
                image_.fill(ColourOf(s.colour, this));
                dirty = rect();
                continue;
            }
            const int x = qRound(s.x * xScale);
            const int y1 = qRound(s.y1 * yScale), y2 = qRound(s.y2 * yScale);
            painter.setPen(QPen(ColourOf(s.colour, this), s.width, Qt::SolidLine, Qt::FlatCap));
            painter.drawLine(x, y1, x, y2);
            dirty |= QRect(x - s.width, 0, 2 * s.width + 1, height());
        }
        p.strokes.clear();
        update(dirty);
    }

    ViewKit& kit_;
    QImage image_;
};

// An editable list: the text is the control's, typed or chosen; a choice runs the handler.
QComboBox* EditableCombo(ViewKit& kit, QWidget* parent, const QString& name, ComboBox& model,
                         const Handler& onClick, std::function<bool(Core&)> leave) {
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->addItems(model.list);
    box->setEditText(model.text);
    box->setMinimumContentsLength(7);
    QObject::connect(box, &QComboBox::editTextChanged, box, [&kit, &model](const QString& text) {
        if (!kit.rendering()) model.text = text;
    });
    QObject::connect(box, &QComboBox::activated, box, [&kit, &model, onClick](int index) {
        if (kit.rendering()) return;
        model.text = model.list.value(index);
        if (onClick) kit.handle(onClick);
    });
    kit.lostFocus(box, std::move(leave));
    Core& c = kit.core();
    kit.onRender([box, &model, &c] {
        if (box->currentText() != model.text) box->setEditText(model.text);
        if (box->isEnabled() != model.enabled) box->setEnabled(model.enabled);
        if (box->toolTip() != model.toolTip) box->setToolTip(model.toolTip);
        SetAccessibleValue(box, model.toolTip);
        if (c.focusRequest == &model) {
            c.focusRequest = nullptr;
            box->setFocus(Qt::OtherFocusReason);
        }
    });
    return box;
}

}  // namespace

QWidget* BuildSpectrumGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    QGroupBox* box = kit.frame(parent, "frmSpectrum", f.frmSpectrum);
    auto* picture = new SpectrumPicture(kit, box);
    QSlider* slider = kit.slider(box, "sldFrequency", f.sldFrequency, {});
    slider->setAccessibleName("Position across the sweep");

    QComboBox* start = EditableCombo(kit, box, "cboSpectrumStart", f.cboSpectrumStart, {},
                                     cboSpectrumStart_LostFocus);
    QComboBox* step = EditableCombo(kit, box, "cboSpectrumStep", f.cboSpectrumStep,
                                    cboSpectrumStep_Click, cboSpectrumStep_LostFocus);
    QComboBox* width = EditableCombo(kit, box, "cboSpectrumWidth", f.cboSpectrumWidth, {},
                                     cboSpectrumWidth_LostFocus);
    QLineEdit* readout = kit.textBox(box, "txtSpectrumFreq", f.txtSpectrumFreq);
    readout->setReadOnly(true);

    auto* boxes = new QGridLayout();
    boxes->addWidget(BuddyLabel("St&art (MHz)", start), 0, 0);
    boxes->addWidget(start, 0, 1);
    boxes->addWidget(BuddyLabel("Ste&p (kHz)", step), 1, 0);
    boxes->addWidget(step, 1, 1);
    boxes->addWidget(BuddyLabel("&Width (kHz)", width), 2, 0);
    boxes->addWidget(width, 2, 1);
    boxes->addWidget(BuddyLabel("Cursor", readout), 3, 0);
    boxes->addWidget(readout, 3, 1);
    auto* buttons = new QHBoxLayout();
    buttons->addWidget(
        kit.button(box, "cmdStartSpectrum", f.cmdStartSpectrum, cmdStartSpectrum_Click));
    buttons->addWidget(
        kit.button(box, "cmdSpectrumResume", f.cmdSpectrumResume, cmdSpectrumResume_Click));
    buttons->addWidget(
        kit.button(box, "cmdStopSpectrum", f.cmdStopSpectrum, cmdStopSpectrum_Click));
    auto* side = new QVBoxLayout();
    side->addLayout(boxes);
    side->addLayout(buttons);
    side->addStretch();

    auto* trace = new QVBoxLayout();
    trace->addWidget(picture);
    trace->addWidget(slider);
    auto* row = new QHBoxLayout(box);
    row->addLayout(trace);
    row->addLayout(side);
    return box;
}

}  // namespace veldor
