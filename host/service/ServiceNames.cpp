#include "host/service/ServiceNames.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "host/service/HexText.h"

namespace tarnlog::host {
namespace {

struct Named {
  std::uint8_t service;
  std::string_view name;
};

constexpr std::array kNames{
    Named{0x01, "current data"},
    Named{0x02, "freeze frame data"},
    Named{0x03, "trouble codes"},
    Named{0x04, "clear trouble codes"},
    Named{0x05, "oxygen sensor results"},
    Named{0x06, "monitoring results"},
    Named{0x07, "pending trouble codes"},
    Named{0x08, "control of a system"},
    Named{0x09, "vehicle information"},
    Named{0x0A, "permanent trouble codes"},
    Named{0x10, "DiagnosticSessionControl"},
    Named{0x11, "ECUReset"},
    Named{0x12, "ReadFreezeFrameData"},
    Named{0x13, "ReadDiagnosticTroubleCodes"},
    Named{0x14, "ClearDiagnosticInformation"},
    Named{0x17, "ReadStatusOfDiagnosticTroubleCodes"},
    Named{0x18, "ReadDiagnosticTroubleCodesByStatus"},
    Named{0x19, "ReadDTCInformation"},
    Named{0x1A, "ReadEcuIdentification"},
    Named{0x20, "StopDiagnosticSession"},
    Named{0x21, "ReadDataByLocalIdentifier"},
    Named{0x22, "ReadDataByIdentifier"},
    Named{0x23, "ReadMemoryByAddress"},
    Named{0x24, "ReadScalingDataByIdentifier"},
    Named{0x26, "SetDataRates"},
    Named{0x27, "SecurityAccess"},
    Named{0x28, "CommunicationControl"},
    Named{0x29, "Authentication"},
    Named{0x2A, "ReadDataByPeriodicIdentifier"},
    Named{0x2C, "DynamicallyDefineDataIdentifier"},
    Named{0x2E, "WriteDataByIdentifier"},
    Named{0x2F, "InputOutputControlByIdentifier"},
    Named{0x30, "InputOutputControlByLocalIdentifier"},
    Named{0x31, "RoutineControl"},
    Named{0x32, "StopRoutineByLocalIdentifier"},
    Named{0x33, "RequestRoutineResultsByLocalIdentifier"},
    Named{0x34, "RequestDownload"},
    Named{0x35, "RequestUpload"},
    Named{0x36, "TransferData"},
    Named{0x37, "RequestTransferExit"},
    Named{0x38, "RequestFileTransfer"},
    Named{0x3B, "WriteDataByLocalIdentifier"},
    Named{0x3D, "WriteMemoryByAddress"},
    Named{0x3E, "TesterPresent"},
    Named{0x81, "StartCommunication"},
    Named{0x82, "StopCommunication"},
    Named{0x83, "AccessTimingParameter"},
    Named{0x84, "SecuredDataTransmission"},
    Named{0x85, "ControlDTCSetting"},
    Named{0x86, "ResponseOnEvent"},
    Named{0x87, "LinkControl"},
};

}  // namespace

std::string serviceName(std::uint8_t service) {
  const auto found = std::ranges::find(kNames, service, &Named::service);
  if (found != kNames.end()) return std::string(found->name);
  return "service " + hexText(std::array{service});
}

}  // namespace tarnlog::host
