#include "catalogue/SessionDocumentBuilder.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>

#include "platform/text/Numbers.h"

namespace tarnlog {
namespace {

constexpr const char* kLineEnd = "\r\n";
/// Stands for a name that the host failed to give.
const std::string kUnknown;

/// The decimal text of an integer behind a prefix, null-terminated, on the stack: there are hundreds of
/// thousands of them.
class IntegerText {
 public:
  explicit IntegerText(std::int32_t value, std::string_view prefix = {}) {
    char* const digits = std::copy(prefix.begin(), prefix.end(), text_);
    *std::to_chars(digits, text_ + sizeof text_ - 1, value).ptr = '\0';
  }
  const char* c_str() const { return text_; }

 private:
  char text_[16];
};

const char* modeOf(std::int32_t typeCode, std::optional<double> minimum, std::optional<double> maximum) {
  if (typeCode == ferrox3::kInteger && minimum == 0.0 && maximum == 1.0) return "binary";
  if (typeCode == ferrox3::kString || typeCode == ferrox3::kByteArray) return "text";
  return "numeric";
}

}  // namespace

void SessionDocumentBuilder::build(const ferrox3::Session& session) {
  document_.appendProcessingInstruction("xml", "version='1.0' encoding=\"windows-1252\"");
  document_.documentNode().appendElement("Tarnlog2000").appendText("\n");
  const auto count = read(std::size_t{0}, [&] { return session.ecuCount(); });
  for (std::size_t i = 0; i < count; ++i) step([&] { addEcu(session.ecu(i)); });
}

void SessionDocumentBuilder::addEcu(const ferrox3::Ecu& ecu) {
  const std::string* const name = read(&kUnknown, [&] { return &ecu.name(); });
  if (name->empty()) return;
  XmlElement root = document_.documentNode().firstChild("Tarnlog2000");
  XmlElement uce = root.appendElement("uce");
  uce.appendAttribute("name", name->c_str());
  step([&] { uce.appendAttribute("function", ecu.functionName().c_str()); });
  std::optional<std::int32_t> address;
  step([&] { address = ecu.address(); });
  if (address) uce.appendAttribute("address", IntegerText(*address).c_str());
  addKey(uce);
  uce.appendText(kLineEnd);
  requestsOfEcu_.clear();
  const auto count = read(std::size_t{0}, [&] { return ecu.requestCount(); });
  for (std::size_t i = 0; i < count; ++i) step([&] { addRequest(ecu, ecu.request(i), uce); });
  index_.addEcu(uce, address, index_.store(requestsOfEcu_));
  root.appendText(kLineEnd);
}

void SessionDocumentBuilder::addRequest(const ferrox3::Ecu& ecu, const ferrox3::Request& request,
                                        XmlElement uce) {
  if (!read(false, [&] { return request.available() && !request.frameText(true).empty(); })) return;
  XmlElement element = uce.appendElement("request");
  const std::string* const name = read(&kUnknown, [&] { return &request.name(); });
  if (name != &kUnknown) element.appendAttribute("name", name->c_str());
  addKey(element);
  element.appendText(kLineEnd);
  dataOfRequest_.clear();
  bool readable = true;
  const auto count = read(std::size_t{0}, [&] { return request.dataCount(); });
  for (std::size_t i = 0; i < count; ++i)
    step([&] { readable &= addData(ecu, request, request.data(i), element); });
  if (!readable) {
    uce.removeChild(element);
    return;
  }
  const SessionIndex::Children data = index_.store(dataOfRequest_);
  if (name != &kUnknown) requestsOfEcu_.add(element, *name, data);
  uce.appendText(kLineEnd);
}

bool SessionDocumentBuilder::addData(const ferrox3::Ecu& ecu, const ferrox3::Request& request,
                                     const ferrox3::DataItem& item, XmlElement requestElement) {
  const std::string* const name = read(&kUnknown, [&] { return &item.name(); });
  if (*name == "ExtraBytes") return true;
  if (!read(false, [&] { return item.readable(); })) {
    requestElement.appendText(kLineEnd);
    return false;
  }
  XmlElement data = requestElement.appendElement("data");
  if (name != &kUnknown) data.appendAttribute("name", name->c_str());
  addKey(data);
  addValueKind(item, data);
  step([&] {
    if (const std::string& unit = item.unit(); !unit.empty()) data.appendAttribute("unit", unit.c_str());
  });
  addDevice(item, data);
  addReference(ecu, request, *name, data);
  addEnumeration(item, data);
  requestElement.appendText(kLineEnd);
  if (name != &kUnknown) dataOfRequest_.add(data, *name);
  return true;
}

void SessionDocumentBuilder::addValueKind(const ferrox3::DataItem& item, XmlElement data) {
  std::int32_t typeCode = 0;
  std::optional<double> minimum;
  std::optional<double> maximum;
  step([&] {
    typeCode = item.typeCode();
    data.appendAttribute("type", IntegerText(typeCode).c_str());
  });
  step([&] {
    minimum = item.minimum();
    data.appendAttribute("min", exactNumberText(*minimum).c_str());
  });
  step([&] {
    maximum = item.maximum();
    data.appendAttribute("max", exactNumberText(*maximum).c_str());
  });
  data.appendAttribute("mode", modeOf(typeCode, minimum, maximum));
}

void SessionDocumentBuilder::addDevice(const ferrox3::DataItem& item, XmlElement data) {
  const ferrox3::Device* device = nullptr;
  step([&] { device = item.device(); });
  if (device == nullptr) return;
  step([&] { data.appendAttribute("device", device->name().c_str()); });
  step([&] { data.appendAttribute("failure", item.failure() ? "1" : "0"); });
}

/// Marks the one definition, of several of that name, that the ECU's own table points to.
void SessionDocumentBuilder::addReference(const ferrox3::Ecu& ecu, const ferrox3::Request& request,
                                          std::string_view name, XmlElement data) {
  skipping_ = true;
  step([&] {
    const ferrox3::DataItem* const reference = ecu.findData(name);
    if (reference != nullptr && reference->request().name() == request.name())
      data.appendAttribute("ref", "1");
  });
}

void SessionDocumentBuilder::addEnumeration(const ferrox3::DataItem& item, XmlElement data) {
  const ferrox3::Enumeration* values = nullptr;
  step([&] { values = item.enumeration(); });
  if (values == nullptr) return;
  XmlElement enumeration = data.appendElement("enumeration");
  const auto count = read(std::int32_t{0}, [&] { return values->Count(); });
  for (std::int32_t i = 1; i <= count; ++i) {
    XmlElement entry = enumeration.appendElement("item");
    step([&] {
      const std::string label = values->label(i);
      step([&] { entry.appendAttribute("v", IntegerText(values->value(label)).c_str()); });
      entry.appendAttribute("l", label.c_str());
    });
  }
}

void SessionDocumentBuilder::addKey(XmlElement element) {
  element.appendAttribute("c", IntegerText(counter_, "c").c_str());
  step([&] {
    if (counter_ == std::numeric_limits<std::int32_t>::max())
      throw TarnError(6, "BuildSessionDocument", "Overflow");
    ++counter_;
  });
}

}  // namespace tarnlog
