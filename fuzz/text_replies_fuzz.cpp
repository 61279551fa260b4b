// The replies of the FT-450, ";"-ended text: identity, frequency and mode, S-meter, busy and
// transmit status, with rejections and fragments anywhere.
#include "link/catalogue.h"
#include "rig_replies.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace veldor;
    static const std::vector<QString> rigs = {RigFT450};
    fuzz::RunRigReplies(rigs, data, size);
    return 0;
}
