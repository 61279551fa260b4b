// The replies of the binary rigs: frequency, mode, status blocks, S-meter, transmit status.
#include "link/catalogue.h"
#include "rig_replies.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace veldor;
    static const std::vector<QString> rigs = {RigFT817,    RigFT817ND, RigFT847,  RigFT857,
                                              RigFT857D,   RigFT897,   RigFT897D, RigFT920,
                                              RigFT1000MP, RigFRG100,  RigVR5000};
    fuzz::RunRigReplies(rigs, data, size);
    return 0;
}
