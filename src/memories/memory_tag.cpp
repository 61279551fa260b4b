#include "memories/memory_tag.h"

#include "basic/basic.h"

namespace veldor {

namespace {

// The tag's MHz text in 10 Hz. Read without a message: the tick runs this at every pass.
int32_t TaggedFrequency(const Core& c) {
    const QString text = c.f.txtMemoryFreq.text.trimmed().replace(c.s.DecimalSeparator, ".");
    return basic::CLng(basic::Val(text) * 100000);
}

}  // namespace

void CheckMemoryTag(Core& c) {
    if (!c.f.mnuMemoryTag.checked || c.f.txtMemoryFreq.text.isEmpty()) return;
    c.f.lblMemoryMT.visible = TaggedFrequency(c) != c.s.LastDisplayedFrequency;
}

void lblMemoryMT_Click(Core& c) {
    if (c.f.txtMemoryFreq.text.isEmpty()) return;
    c.f.txtGoToFreq.text = c.f.txtMemoryFreq.text;
    c.s.GoToPending = true;
}

void ShowMemoryTagFrame(Core& c) {
    c.f.mnuMemoryTag.checked = c.s.ShowMemoryTag;
    c.f.frmMemoryTag.visible = c.s.ShowMemoryTag;
}

void mnuMemoryTag_Click(Core& c) {
    c.s.ShowMemoryTag = !c.f.mnuMemoryTag.checked;
    ShowMemoryTagFrame(c);
    SaveSetting(c, c.s.AppName, "Settings", "ShowMemoryTag", c.s.ShowMemoryTag ? "Y" : "N");
}

}  // namespace veldor
