// The program's other windows on Qt Widgets: each is made by the factory given for it when the
// core asks for it, and forgotten when it closes.
#pragma once

#include "link/platform.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <map>

namespace veldor {

class QtWindows : public Windows {
  public:
    using Factory = std::function<QWidget*()>;
    // A window the program has. A window without a factory is not built, and is never shown.
    void add(FormId form, Factory factory);

    void show(FormId form, bool modal) override;
    void hide(FormId form) override;
    void close(FormId form) override;
    bool shown(FormId form) const override;
    // The window open for the form, if any.
    QWidget* window(FormId form) const;

  private:
    std::map<FormId, Factory> factories_;
    std::map<FormId, QPointer<QWidget>> open_;
};

}  // namespace veldor
