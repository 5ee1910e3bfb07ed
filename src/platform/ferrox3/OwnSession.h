#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ferrox3/Session.h"
#include "platform/text/UserLocale.h"

namespace tarnlog::ferrox3 {

/// A measure that a program knows by itself, in its unit; the range is that of its graphs and bars.
struct OwnDatum {
  std::string name;
  std::string unit{};
  double minimum = 0;
  double maximum = 100;
};

/// A session for programs that have data of their own in place of a vehicle's: a test bench, another library.
/// An ECU is no more than a name for a group of requests, a request a group of data that are read together.
class OwnSession : public Session {
 public:
  /// The values of one request, in the order of its data; NaN where one is not available. Called once a
  /// polling cycle while any of them is acquired. What it raises as a TarnError is a failure of the request.
  using Read = std::function<std::vector<double>()>;

  /// `locale`: of the texts of values.
  explicit OwnSession(const UserLocale& locale = {});
  ~OwnSession() override;

  /// All of them before the session is given away. Raises a TarnError when the ECU has a request of that
  /// name, the request two data of one name, a name is empty, or nothing reads.
  void add(const std::string& ecu, const std::string& request, const std::vector<OwnDatum>& data, Read read);

  std::size_t ecuCount() const override;
  Ecu& ecu(std::size_t position) const override;
  Ecu* findEcuByFunction(std::string_view functionName) const override;
  std::unique_ptr<AcquisitionList> createAcquisitionList() override;
  /// Raises: there is nobody who would take bytes.
  std::unique_ptr<RawBuffer> createRawBuffer() override;
  bool communicating() const override { return false; }
  void endCommunication() override {}

 private:
  class OwnEcu;

  char decimalSeparator_;
  std::vector<std::unique_ptr<OwnEcu>> ecus_;
};

}  // namespace tarnlog::ferrox3
