#include "protocol/read_meters.h"

#include "link/forms/docking.h"
#include "link/serial_link.h"

namespace veldor {

namespace {

// Where each meter stands in the rig's replies. Byte 0 of block 0 is the S-meter, which the
// main window shows; byte 0 of block 2 is not shown.
struct Meter {
    uint8_t block;
    int byte;
    ProgressBar FrmMeters::*bar;
    Label FrmMeters::*number;
};
constexpr Meter kMeters[] = {
    {0, 1, &FrmMeters::pbarALC, &FrmMeters::lblALC},
    {0, 2, &FrmMeters::pbarVLT, &FrmMeters::lblVLT},
    {0, 3, &FrmMeters::pbarAMP, &FrmMeters::lblAMP},
    {1, 0, &FrmMeters::pbarFWD, &FrmMeters::lblFWD},
    {1, 1, &FrmMeters::pbarREV, &FrmMeters::lblREV},
    {1, 2, &FrmMeters::pbarSFT, &FrmMeters::lblSFT},
    {1, 3, &FrmMeters::pbarPCH, &FrmMeters::lblPCH},
    {2, 1, &FrmMeters::pbarSQL, &FrmMeters::lblSQL},
    {2, 2, &FrmMeters::pbarHPF, &FrmMeters::lblHPF},
    {2, 3, &FrmMeters::pbarLPF, &FrmMeters::lblLPF},
    {3, 0, &FrmMeters::pbarNR, &FrmMeters::lblNR},
    {3, 1, &FrmMeters::pbarPRC, &FrmMeters::lblPRC},
    {3, 2, &FrmMeters::pbarDSC, &FrmMeters::lblDSC},
};

}  // namespace

void ReadMeters(Core& c, const QByteArray& firstReply) {
    FrmMeters& m = c.frmMeters;
    // Docked again at every reading, whether it has moved or not.
    DockBeside(c.f, m, c.s.MetersDockLeft);
    QByteArray reply = firstReply;
    uint8_t block = 0;
    for (const Meter& meter : kMeters) {
        if (meter.block != block) {
            block = meter.block;
            PutParameters(c);
            c.s.CommandBytes[3] = block;
            SendCommand(c, 0xF7);
            ReadResponse(c, 5);
            // A lost block ends the refresh; the bars keep their figures.
            if (c.s.ReplyTimedOut) return;
            reply = c.s.ReplyBytes;
        }
        // A reply of another length skips only its own block.
        if (reply.size() != 5) continue;
        const auto value = static_cast<uint8_t>(reply[meter.byte]);
        (m.*meter.bar).value = value;
        (m.*meter.number).caption = QString::number(value);
    }
}

}  // namespace veldor
