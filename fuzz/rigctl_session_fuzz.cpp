// A client of rig sharing sends any bytes, in chunks of any size, to a connected FT-817.
#include "link/catalogue.h"
#include "sharing/rigctl_session.h"
#include "support/fakes.h"

#include <cstddef>
#include <cstdint>

using namespace veldor;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static test::OnAir station(RigFT817);
    RigctlSession session;
    // The first byte chooses the size of the chunks the bytes arrive in.
    const size_t chunk = size > 0 ? 1 + data[0] % 64 : 1;
    for (size_t at = size > 0 ? 1 : 0; at < size; at += chunk) {
        const auto* bytes = reinterpret_cast<const char*>(data + at);
        RigctlReceive(station.c, session, QByteArray(bytes, int(std::min(chunk, size - at))));
        if (session.waitingFor != nullptr) {
            station.tick();
            RigctlRequestsServed(station.c, session);
        }
    }
    return 0;
}
