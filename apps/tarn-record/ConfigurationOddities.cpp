#include "apps/tarn-record/ConfigurationOddities.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

#include "platform/base/TarnError.h"
#include "platform/text/Numbers.h"
#include "platform/text/Told.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog::record {

namespace {

enum class Kind {
  Text,
  Whole,   ///< kept as it was unless it is a number
  Count,   ///< its leading number is taken
  Number,  ///< the same, with a fraction
  Flag,
  Edge
};

struct Known {
  std::map<std::string_view, Kind> attributes;
  std::vector<std::string_view> elements;
};

/// By name, with the parent's where two elements share one.
const std::map<std::string_view, Known>& knownElements() {
  using enum Kind;
  static const std::map<std::string_view, Known> known = {
      {"Tarnlog2000",
       {{{"Version", Text}}, {"Description", "File", "Date", "Time", "Parameters", "Datas", "row"}}},
      {"Parameters", {{}, {"Comment", "StartSession", "InitScenario", "Recording"}}},
      {"InitScenario", {{}, {"Request"}}},
      {"Request", {{{"Name", Text}, {"EcuName", Text}, {"Address", Whole}}, {}}},
      {"Recording", {{{"period", Whole}}, {"Trigger", "File"}}},
      {"Recording/File", {{{"prefix", Text}, {"folder", Text}, {"format", Text}}, {}}},
      {"Trigger", {{}, {"Start", "Stop"}}},
      {"Start", {{{"prepost", Whole}, {"restart", Flag}, {"type", Text}}, {"Channel"}}},
      {"Stop", {{{"prepost", Whole}, {"type", Text}}, {"Channel", "Time"}}},
      {"Channel", {{{"edge", Edge}, {"level", Number}, {"index", Whole}}, {}}},
      {"Stop/Time", {{{"seconde", Whole}}, {}}},
      {"Datas", {{}, {"Data"}}},
      {"Data", {{{"index", Count}, {"name", Text}, {"request", Text}, {"unit", Text}}, {"ECU", "Scope"}}},
      {"ECU", {{{"name", Text}, {"function", Text}, {"address", Count}}, {}}},
      {"Scope", {{{"type", Text}}, {"Digital", "BarGraph", "Graph", "GraphIndex", "GraphAxeX"}}},
      {"Digital", {{{"caption", Text}}, {"Pos"}}},
      {"BarGraph", {{{"caption", Text}, {"color", Count}, {"mini", Number}, {"maxi", Number}}, {"Pos"}}},
      {"Graph",
       {{{"caption", Text},
         {"axeYmini", Number},
         {"axeYmaxi", Number},
         {"axeYauto", Flag},
         {"points", Count},
         {"color", Count}},
        {"Pos"}}},
      {"GraphIndex", {{{"caption", Text}, {"index", Count}, {"color", Count}}, {}}},
      {"GraphAxeX",
       {{{"caption", Text}, {"axeXmini", Number}, {"axeXmaxi", Number}, {"axeXauto", Flag}, {"index", Count}},
        {}}},
      {"Pos", {{{"left", Number}, {"top", Number}, {"Width", Number}, {"Height", Number}}, {}}},
  };
  return known;
}

const Known* knownOf(XmlElement element) {
  const std::string name(element.name());
  const auto& all = knownElements();
  auto found = all.find(std::string(element.parent().name()) + "/" + name);
  if (found == all.end()) found = all.find(name);
  return found == all.end() ? nullptr : &found->second;
}

bool isNumber(std::string_view text, bool fraction) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  const std::string_view allowed = fraction ? "0123456789.eE+-" : "0123456789";
  return text.find_first_of("0123456789") != std::string_view::npos &&
         text.find_first_not_of(allowed) == std::string_view::npos;
}

/// What was expected and what is taken instead; empty when the value is as it should be.
std::string valueOddity(std::string_view value, Kind kind) {
  if (kind == Kind::Flag && value != "0" && value != "1") return Told::tr("expected 0 or 1; 0 is taken");
  if (kind == Kind::Edge && value != "1" && value != "-1")
    return Told::tr("expected 1 (rising) or -1 (falling); otherwise the trigger never fires");
  if (kind == Kind::Whole && (!isNumber(value, false) || !wholeInteger(value))) {
    const auto taken = wholeInteger(value);
    return taken ? Told::tr("expected a whole number of 32 bits; {} is taken", *taken)
                 : Told::tr("expected a whole number of 32 bits; it is ignored");
  }
  if (kind == Kind::Count && !isNumber(value, false))
    return Told::tr("expected a whole number; {} is taken", leadingInteger(value));
  if (kind == Kind::Number && !isNumber(value, true))
    return Told::tr("expected a number with \".\"; {} is taken", exactNumberText(leadingNumber(value)));
  return {};
}

class Search {
 public:
  std::vector<std::string> found;

  /// Triggers and references name data by their index.
  void lookAtIndexes(XmlElement root) {
    std::set<std::int32_t> seen;
    for (const XmlElement data : root.selectNodes("Datas/Data")) {
      const std::int32_t index = leadingInteger(data.attributeOrEmpty("index"));
      if (!seen.insert(index).second)
        found.push_back(Told::tr("Datas: two data have the index {}; what names it means the first", index));
    }
  }

  void look(XmlElement element, const std::string& place) {
    const Known* const known = knownOf(element);
    if (known == nullptr) return;
    lookAtAttributes(element, *known, place);
    std::map<std::string, int> numbers;
    for (const XmlElement child : element.selectNodes("*")) {
      const std::string name(child.name());
      const std::string path = place.empty() ? name : fmt::format("{}/{}", place, name);
      const int number = ++numbers[name];
      if (std::find(known->elements.begin(), known->elements.end(), name) == known->elements.end())
        found.push_back(Told::tr("{}: unknown element", path));
      else if (number == 2 && !mayRepeat(name))
        found.push_back(Told::tr("{}: is there twice; only the first one is read", path));
      else if (name != "row")
        look(child,
             number == 1 && name != "Data" && name != "Request" ? path : fmt::format("{}[{}]", path, number));
    }
    lookAtType(element, place);
  }

 private:
  static bool mayRepeat(std::string_view name) {
    return name == "Data" || name == "Request" || name == "row";
  }

  void lookAtAttributes(XmlElement element, const Known& known, const std::string& place) {
    for (const std::string_view name : element.attributeNames()) {
      const std::string_view value = element.attributeOrEmpty(std::string(name).c_str());
      const auto kind = known.attributes.find(name);
      const std::string what =
          kind == known.attributes.end() ? Told::tr("unknown attribute") : valueOddity(value, kind->second);
      if (!what.empty()) found.push_back(fmt::format("{}: {}=\"{}\": {}", place, name, value, what));
    }
  }

  /// A type names the element that has its settings.
  void lookAtType(XmlElement element, const std::string& place) {
    const std::string_view name = element.name();
    const std::string type(element.attributeOrEmpty("type"));
    const bool trigger = name == "Start" || name == "Stop";
    if (!trigger && name != "Scope") return;
    const std::string none = trigger ? "Manual" : "None";
    const auto& types = knownOf(element)->elements;
    if (type == none) return;
    if (std::find(types.begin(), types.end(), type) == types.end())
      found.push_back(Told::tr("{}: type=\"{}\": expected one of {}, {}; {} is taken", place, type, none,
                               fmt::join(types, ", "), none));
    else if (!element.firstChild(type.c_str()))
      found.push_back(Told::tr("{}: no element {}, which has the settings", place, type));
  }
};

}  // namespace

std::vector<std::string> configurationOddities(const FileSystem& files, const std::string& file) {
  XmlDocument document;
  if (!skipOnFailure([&] { static_cast<void>(document.parse(files.readAll(file))); })) return {};
  const XmlElement root = document.documentNode().firstChild("Tarnlog2000");
  Search search;
  if (root.attributeOrEmpty("Version").starts_with('2')) {
    search.look(root, {});
    search.lookAtIndexes(root);
  }
  return search.found;
}

}  // namespace tarnlog::record
