#include "ui/docked_panel.h"

#include <QCloseEvent>
#include <QGuiApplication>

namespace veldor {

bool WindowsPlacedByCompositor() {
    return QGuiApplication::platformName().startsWith("wayland");
}

DockedPanel::DockedPanel(Core& core, Views& views, QWidget* parent, Placement placement)
    : QWidget(parent, Qt::Tool), kit_(core, views), placement_(std::move(placement)) {
    kit_.onRender([this] { place(); });
    place();
}

void DockedPanel::place() {
    if (WindowsPlacedByCompositor()) return;
    const QPoint wanted(*placement_.left / kPanelTwipsPerPixel,
                        *placement_.top / kPanelTwipsPerPixel);
    if (pos() != wanted) move(wanted);
}

void DockedPanel::tellForm() {
    // The frame's place and size: the panel's edge meets the main window's frame.
    const QRect frame = frameGeometry();
    *placement_.left = frame.x() * kPanelTwipsPerPixel;
    *placement_.top = frame.y() * kPanelTwipsPerPixel;
    *placement_.width = frame.width() * kPanelTwipsPerPixel;
    *placement_.height = frame.height() * kPanelTwipsPerPixel;
}

void DockedPanel::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (!WindowsPlacedByCompositor()) tellForm();
}

void DockedPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const QRect frame = frameGeometry();
    *placement_.width = frame.width() * kPanelTwipsPerPixel;
    *placement_.height = frame.height() * kPanelTwipsPerPixel;
}

void DockedPanel::closeEvent(QCloseEvent* event) {
    // The title bar's close does what the panel's own Close does; the core then closes it.
    if (*placement_.loaded) kit_.handle(placement_.close);
    event->accept();
}

}  // namespace veldor
