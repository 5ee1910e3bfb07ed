// What peers on a wire may send: diagnostics over IP as a stream cut anywhere, CAN frames of long messages,
// and traces. The first byte chooses.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>

#include "host/link/DoipMessage.h"
#include "host/link/IsoTp.h"
#include "host/link/Trace.h"
#include "platform/base/TarnError.h"

namespace {

using namespace tarnlog::host;
using Bytes = std::span<const std::uint8_t>;

/// Pieces as long as the input's own bytes say.
template <class Take>
void inPieces(Bytes bytes, std::size_t longest, Take&& take) {
  while (!bytes.empty()) {
    const std::size_t length = std::min<std::size_t>(bytes[0] % (longest + 1), bytes.size() - 1);
    take(bytes.subspan(1, length));
    bytes = bytes.subspan(1 + length);
  }
}

void readDoip(Bytes bytes) {
  DoipStream stream;
  inPieces(bytes, 64, [&](Bytes piece) {
    stream.append(piece);
    while (const auto message = stream.next())
      if (message->payload.size() > DoipStream::kLongest) std::abort();
  });
  parseDoipDatagram(bytes);
}

void readFrames(Bytes bytes) {
  IsoTpReceiver receiver;
  IsoTpSender sender;
  const std::uint8_t request[40] = {0x22};
  sender.start(request);
  inPieces(bytes, 8, [&](Bytes frame) {
    receiver.accept(frame);
    if (receiver.message().size() > IsoTpReceiver::kLongest) std::abort();
    tarnlog::skipOnFailure([&] { sender.flowControl(frame, 0); });
    sender.next(1'000'000);
  });
}

void readTrace(Bytes bytes) {
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  tarnlog::skipOnFailure([&] {
    for (const TraceEntry& entry : parseTrace(text, "trace")) parseTrace(traceLine(entry) + "\n", "again");
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const Bytes bytes(data + 1, size - 1);
  switch (data[0] % 3) {
    case 0:
      readDoip(bytes);
      break;
    case 1:
      readFrames(bytes);
      break;
    default:
      readTrace(bytes);
  }
  return 0;
}
