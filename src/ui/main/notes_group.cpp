#include "memories/notes.h"
#include "ui/main/groups.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace veldor {

QWidget* BuildNotesGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox("Notes", parent);
    auto* row = new QHBoxLayout(box);
    row->addWidget(kit.button(box, "cmdNoteFreq", f.cmdNoteFreq, cmdNoteFreq_Click));
    for (QPushButton* b : {kit.button(box, "cmdBack", f.cmdBack, cmdBack_Click),
                           kit.button(box, "cmdForward", f.cmdForward, cmdForward_Click)}) {
        b->setMaximumWidth(32);
        row->addWidget(b);
    }
    row->addWidget(kit.button(box, "cmdNoteLast", f.cmdNoteLast, cmdNoteLast_Click));
    row->addWidget(kit.button(box, "cmdClearNotes", f.cmdClearNotes, cmdClearNotes_Click));
    // The note shown, of the notes taken: "3 / 5".
    QLabel* current = kit.light(box, "lblCurrentNote", f.lblCurrentNote);
    QLabel* count = kit.light(box, "lblNotes", f.lblNotes);
    current->setMinimumWidth(28);
    count->setMinimumWidth(28);
    row->addWidget(current);
    row->addWidget(new QLabel("/", box));
    row->addWidget(count);
    row->addStretch();
    return box;
}

}  // namespace veldor
