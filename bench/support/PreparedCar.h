#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "config/oTarnParameters.h"
#include "host/link/Link.h"
#include "host/vehicle/Vehicle.h"
#include "platform/settings/SettingsStore.h"
#include "tests/support/MemoryFileSystem.h"

namespace tarnlog::bench {

/// Answers at once, with bytes that change from one answer to the next.
class PreparedLink : public host::Link {
 public:
  explicit PreparedLink(std::size_t dataPerRequest) : answer_(3 + 2 * dataPerRequest) {}

  void doOpen() override {}
  void doClose() override {}
  bool doSend(const host::LinkTarget&, std::span<const std::uint8_t> request) override {
    answer_[0] = static_cast<std::uint8_t>(request[0] + 0x40);
    answer_[1] = request[1];
    answer_[2] = request[2];
    return true;
  }
  Received doReceive(Bytes& response, std::chrono::milliseconds) override {
    response.assign(next().begin(), next().end());
    fill();
    return Received::response;
  }

  /// The answer that `receive` gives next.
  const Bytes& next() const { return answer_; }
  /// What comes after it.
  void fill() {
    for (std::size_t i = 3; i < answer_.size(); ++i)
      answer_[i] = static_cast<std::uint8_t>(answer_[i] + i * 7 + 1);
  }

 private:
  Bytes answer_;
};

/// A vehicle of one ECU with so many requests (service 22), each with 16-bit data of the factor 0.25.
inline std::string carDescription(std::size_t requests, std::size_t dataPerRequest, int latency) {
  std::string text = R"({"name":"bench","ecus":[{"name":"ECU","address":1,"protocol":"UDS","requests":[)";
  for (std::size_t r = 0; r < requests; ++r) {
    static const char* const kDigits = "0123456789ABCDEF";
    text += (r > 0 ? "," : "") + std::string(R"({"name":"R)") + std::to_string(r) + R"(","frame":"22 00 )" +
            kDigits[r / 16 % 16] + kDigits[r % 16] + R"(","data":[)";
    for (std::size_t d = 0; d < dataPerRequest; ++d)
      text += (d > 0 ? "," : "") + std::string(R"({"name":"D)") + std::to_string(d) + R"(","byte":)" +
              std::to_string(3 + 2 * d) + R"(,"bytes":2,"factor":0.25,"unit":"V"})";
    text += "]}";
  }
  return text + R"(]}],"simulation":{"latency":)" + std::to_string(latency) + "}}";
}

/// Records every data item, every polling cycle, as text.
inline std::shared_ptr<oTarnParameters> everything(std::size_t requests, std::size_t dataPerRequest,
                                                   const std::string& folder) {
  static const MemorySettingsStore settings;
  auto parameters = std::make_shared<oTarnParameters>(settings);
  parameters->recordingPeriod = 0;
  parameters->fileFolder = folder;
  for (std::size_t r = 0; r < requests; ++r)
    for (std::size_t d = 0; d < dataPerRequest; ++d) {
      auto scope = std::make_unique<oTarnScope>();
      scope->index = parameters->Count() + 1;
      scope->DataKey = "c" + std::to_string(scope->index);
      scope->FunctionName = scope->EcuName = "ECU";
      scope->RequestName = "R" + std::to_string(r);
      scope->DataName = "D" + std::to_string(d);
      parameters->AddScope(std::move(scope));
    }
  return parameters;
}

}  // namespace tarnlog::bench
