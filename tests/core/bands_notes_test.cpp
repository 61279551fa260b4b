// Band buttons, GoTo and knob on the wire of three kinds of rig, and the refusals of every
// tuning request.
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "memories/notes.h"
#include "support/fakes.h"
#include "tuning/bands.h"
#include "tuning/go_to.h"
#include "tuning/steps.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// What reaches each kind of rig, in hex or as text, from a band button, then a typed GoTo
// with a mode letter, then three notches of the knob at 100 Hz between two ticks.
TEST(TuningOnTheWire, BandGoToAndKnobOnEachKindOfRig) {
    const struct {
        const QString& rig;
        int band;
        const char *bandSent, *goToSent, *knobSent;
    } rows[] = {
        // Mode, frequency, tone off, simplex, then the frequency read back; the GoTo reads
        // nothing back and sends only what changed.
        {RigFT817, 4, "01 00 00 00 07 01 42 00 00 01 8a 00 00 00 0a 89 00 00 00 09 00 00 00 00 03",
         "00 00 00 00 07 00 70 74 00 01", "00 70 74 30 01"},
        {RigFT450, 9, "MD04;FA51410000;CT00;OS00;IF;", "MD01;FA07074000;", "FA07074300;"},
        // Mode with the step code of its group, then the frequency in binary; never read.
        {RigVR5000, 4, "01 21 00 00 07 00 15 aa e0 01", "00 21 00 00 07 00 0a cb 48 01",
         "00 0a cb 66 01"},
    };
    for (const auto& r : rows) {
        OnAir st(r.rig);
        auto sent = [&st, &r] {
            st.tick();
            const QByteArray bytes = st.rigReceived();
            st.rig().clearTrace();
            return QString(r.rig == RigFT450 ? bytes : bytes.toHex(' '));
        };
        cmdBand_Click(st.c, r.band);
        SCOPED_TRACE(r.rig.toStdString());
        EXPECT_EQ(sent(), r.bandSent);
        st.c.s.TargetShift = "-";
        st.c.f.txtGoToFreq.text = "7.074l";
        cmdGoToFreq_Click(st.c);
        EXPECT_EQ(sent(), r.goToSent);
        EXPECT_EQ(st.c.s.TargetShift, "0");  // a typed frequency is simplex
        st.c.s.TargetShift = "-";
        st.c.f.grdTuning.row = 1;
        grdTuning_RowColChange(st.c);
        KnobWheel(st.c, 3);
        EXPECT_EQ(sent(), r.knobSent);
        EXPECT_EQ(st.c.s.TargetShift, "-");  // a knob step keeps the channel
    }
}

TEST(TuningRequests, NothingHappensWhileTheLinkIsOffOrTheRigIsBusy) {
    enum Condition { None, Off, Transmitting, Scanning, Sweeping, SweepPaused };
    const struct {
        const char* name;
        void (*request)(Core&);
        bool whileSweeping, whilePaused;
    } requests[] = {
        {"band", [](Core& c) { cmdBand_Click(c, 2); }, false, false},
        {"GoTo", ApplyGoTo, false, true},
        {"back", cmdBack_Click, false, true},
        {"last note", cmdNoteLast_Click, true, true},
    };
    for (const auto& r : requests) {
        for (Condition cond : {None, Off, Transmitting, Scanning, Sweeping, SweepPaused}) {
            Wire w(RigFT817, Bytes({0}));
            State& s = w.c.s;
            LoadBands(w.c);
            s.NoteFreq[1] = "7.05";
            s.NoteLast = s.NoteCurrent = 1;
            w.c.f.txtGoToFreq.text = "7.1";
            w.c.f.chkOnOff.value = cond == Off ? 0 : 1;
            s.Transmitting = cond == Transmitting;
            s.ScanRunning = cond == Scanning;
            s.SpectrumRunning = cond == Sweeping || cond == SweepPaused;
            s.SpectrumPaused = cond == SweepPaused;
            r.request(w.c);
            const bool acts = cond == None || (cond == Sweeping && r.whileSweeping) ||
                              (cond == SweepPaused && r.whilePaused);
            EXPECT_EQ(s.FrequencyChangePending || !w.hex().isEmpty(), acts)
                << r.name << " " << cond;
        }
    }
}

}  // namespace
}  // namespace veldor::test
