#include <malloc.h>

#include <cstddef>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "bench/support/Goals.h"
#include "bench/support/LeanSession.h"
#include "catalogue/SessionDocument.h"
#include "platform/text/Numbers.h"

namespace {

using namespace tarnlog;

const bench::LeanSession& session() {
  static const bench::LeanSession built(40, 100, 50);
  return built;
}

/// The texts of one element, ready to be put into a document.
struct Texts {
  const char* element;
  std::vector<std::pair<const char*, std::string>> attributes;
  std::vector<Texts> children;
  bool linesInside;  ///< a line end behind the start tag and each child
};

std::string reading(XmlElement element, const char* name) {
  return std::string(element.attributeOrEmpty(name));
}

Texts textsOf(XmlElement element, const char* name, std::initializer_list<const char*> attributes) {
  Texts texts{name, {}, {}, false};
  for (const char* attribute : attributes)
    if (element.attribute(attribute)) texts.attributes.emplace_back(attribute, reading(element, attribute));
  return texts;
}

Texts dataTexts(XmlElement data) {
  Texts texts =
      textsOf(data, "data", {"name", "c", "type", "min", "max", "mode", "unit", "device", "failure", "ref"});
  if (const XmlElement enumeration = data.firstChild("enumeration")) {
    texts.children.push_back(textsOf(enumeration, "enumeration", {}));
    for (XmlElement item = enumeration.firstChild("item"); item; item = item.nextSibling("item"))
      texts.children.back().children.push_back(textsOf(item, "item", {"v", "l"}));
  }
  return texts;
}

const std::vector<Texts>& vehicleTexts() {
  static const auto built = [] {
    std::vector<Texts> ecus;
    const SessionDocument document = BuildSessionDocument(session());
    for (const XmlElement uce : document.document().selectNodes("Tarnlog2000/uce")) {
      ecus.push_back(textsOf(uce, "uce", {"name", "function", "address", "c"}));
      ecus.back().linesInside = true;
      for (XmlElement request = uce.firstChild("request"); request;
           request = request.nextSibling("request")) {
        Texts texts = textsOf(request, "request", {"name", "c"});
        texts.linesInside = true;
        for (XmlElement data = request.firstChild("data"); data; data = data.nextSibling("data"))
          texts.children.push_back(dataTexts(data));
        ecus.back().children.push_back(std::move(texts));
      }
    }
    return ecus;
  }();
  return built;
}

void append(XmlElement parent, const Texts& texts) {
  XmlElement element = parent.appendElement(texts.element);
  for (const auto& [name, value] : texts.attributes) element.appendAttribute(name, value.c_str());
  if (texts.linesInside) element.appendText("\r\n");
  for (const Texts& child : texts.children) {
    append(element, child);
    if (texts.linesInside) element.appendText("\r\n");
  }
}

std::size_t bytesInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

/// Builds once an iteration; what is built is released outside the measured time.
template <class Build>
void measureBuilding(benchmark::State& state, Build build) {
  vehicleTexts();
  for (auto _ : state) {
    const std::size_t before = bytesInUse();
    std::optional built = build();
    state.PauseTiming();
    state.counters["bytes"] = static_cast<double>(bytesInUse() - before);
    built.reset();
    state.ResumeTiming();
  }
}

void buildSessionDocument(benchmark::State& state) {
  measureBuilding(state, [] { return std::optional(BuildSessionDocument(session())); });
}

void bareDocumentCalls(benchmark::State& state) {
  measureBuilding(state, [] {
    std::optional<XmlDocument> document(std::in_place);
    document->appendProcessingInstruction("xml", "version='1.0' encoding=\"windows-1252\"");
    XmlElement root = document->documentNode().appendElement("Tarnlog2000");
    root.appendText("\n");
    for (const Texts& ecu : vehicleTexts()) {
      append(root, ecu);
      root.appendText("\r\n");
    }
    return document;
  });
}

struct Wanted {
  std::string ecu;
  std::string request;
  std::string data;
  std::int32_t address;
};

/// Items of all ECUs, evenly, as a configuration may hold them; one of ten ECUs is known by its address only.
const std::vector<Wanted>& wantedItems() {
  static const auto built = [] {
    std::mt19937 random(1);
    std::vector<Wanted> wanted;
    for (int i = 0; i < 1000; ++i) {
      const auto& ecu = session().ecu(random() % 40);
      const auto& request = ecu.request(random() % 100);
      wanted.push_back({i % 10 == 0 ? "renamed" : ecu.name(), request.name(),
                        request.data(random() % 50).name(), ecu.address()});
    }
    return wanted;
  }();
  return built;
}

const SessionDocument& document() {
  static const SessionDocument built = BuildSessionDocument(session());
  return built;
}

XmlElement firstNamed(XmlElement parent, const char* element, std::string_view name) {
  XmlElement child = parent.firstChild(element);
  while (child && child.attributeOrEmpty("name") != name) child = child.nextSibling(element);
  return child;
}

XmlElement walk(const Wanted& wanted) {
  XmlElement uce = document().document().documentNode().firstChild("Tarnlog2000").firstChild("uce");
  while (uce && uce.attributeOrEmpty("name") != wanted.ecu &&
         wholeInteger(uce.attributeOrEmpty("address")) != wanted.address)
    uce = uce.nextSibling("uce");
  return firstNamed(firstNamed(uce, "request", wanted.request), "data", wanted.data);
}

template <class Find>
void measureLookUp(benchmark::State& state, Find find) {
  document();
  const auto& wanted = wantedItems();
  std::size_t next = 0;
  for (auto _ : state) {
    XmlElement found = find(wanted[next]);
    if (!found) state.SkipWithError("not found");
    next = next + 1 == wanted.size() ? 0 : next + 1;
  }
}

void lookUp(benchmark::State& state) {
  measureLookUp(state, [](const Wanted& wanted) {
    return FindSessionData(document(), wanted.ecu, wanted.request, wanted.data, wanted.address);
  });
}

void walkInDocumentOrder(benchmark::State& state) { measureLookUp(state, walk); }

BENCHMARK(buildSessionDocument)->Unit(benchmark::kMillisecond);
BENCHMARK(bareDocumentCalls)->Unit(benchmark::kMillisecond);
BENCHMARK(lookUp);
BENCHMARK(walkInDocumentOrder);

}  // namespace

int main(int argc, char** argv) {
  tarnlog::bench::Goals goals;
  using tarnlog::bench::atLeast;
  using tarnlog::bench::atMost;
  goals.ratio("catalogue_build_time", "buildSessionDocument", "bareDocumentCalls", atMost(1.5));
  goals.ratio("catalogue_build_memory", "buildSessionDocument", "bareDocumentCalls", atMost(1.5), "bytes");
  goals.ratio("catalogue_look_up_speed_up", "walkInDocumentOrder", "lookUp", atLeast(50));
  return goals.run(argc, argv);
}
