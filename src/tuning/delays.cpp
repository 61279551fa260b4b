#include "tuning/delays.h"

#include "basic/basic.h"
#include "link/catalogue.h"

#include <algorithm>

namespace veldor {

namespace {

// The key of a delay of the rig in use ("FT897CMDdelay" for an FT-897D); empty for no rig.
QString DelayKey(const Core& c, const QString& suffix) {
    const RigInfo* rig = FindRig(c.s.RigType);
    if (!rig) return {};
    return QString::fromUtf16(rig->delayPrefix.data(),
                              static_cast<qsizetype>(rig->delayPrefix.size())) +
           suffix;
}

void SaveDelay(Core& c, const QString& suffix, int value) {
    const QString key = DelayKey(c, suffix);
    if (!key.isEmpty()) SaveSetting(c, c.s.AppName, "Settings", key, QString::number(value));
}

}  // namespace

void LoadDelaySliders(Core& c, const QString& extraDefault) {
    if (!FindRig(c.s.RigType)) return;
    const DelayDefaults defaults = DelayDefaultsFor(c.s.RigType);
    auto load = [&](Slider& slider, const QString& suffix, const QString& def) {
        const QString text = GetSetting(c, c.s.AppName, "Settings", DelayKey(c, suffix), def);
        slider.value = std::clamp(basic::CLng(basic::Val(text)), slider.min, slider.max);
    };
    load(c.f.sldCMDdelay, "CMDdelay", defaults.cmd);
    load(c.f.sldSmeterDelay, "SmeterDelay", defaults.smeter);
    load(c.f.sldExtra, "ExtraDelay", extraDefault);
}

void sldCMDdelay_Change(Core& c) {
    SaveDelay(c, "CMDdelay", c.f.sldCMDdelay.value);
}

void sldSmeterDelay_Change(Core& c) {
    SaveDelay(c, "SmeterDelay", c.f.sldSmeterDelay.value);
}

void sldExtra_Change(Core& c) {
    SaveDelay(c, "ExtraDelay", c.f.sldExtra.value);
}

void chkSliders_Click(Core& c) {
    Form1& f = c.f;
    const bool show = f.chkSliders.value == 1;
    for (Control* control :
         std::initializer_list<Control*>{&f.sldCMDdelay, &f.sldSmeterDelay, &f.sldExtra,
                                         &f.lblCmdDelay, &f.lblAGCdelay, &f.lblExtra})
        control->visible = show;
}

}  // namespace veldor
