#include "publish/PublishTexts.h"

#include <cmath>

#include "records/RecordTexts.h"
#include "samples/JsonText.h"

namespace tarnlog {

namespace {

/// An object that is being written.
class Object {
 public:
  explicit Object(std::string& out) : out_(out) { out_ += '{'; }
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  ~Object() { out_ += '}'; }

  std::string& name(std::string_view name) {
    if (out_.back() != '{') out_ += ',';
    appendText(name);
    return out_ += ':';
  }
  void text(std::string_view of, std::string_view text) {
    if (text.empty()) return;
    name(of);
    appendText(text);
  }
  void number(std::string_view of, double value) {
    appendRecordNumber(name(of), {RecordValue::Kind::Number, value, {}}, true);
  }
  void appendText(std::string_view text) {
    quoted_.clear();
    appendJson(quoted_, text);
    out_ += quoted_.view();
  }

 private:
  std::string& out_;
  ByteBuffer quoted_;
};

void addValue(Object& values, const RecordColumn& column, const RecordValue& value) {
  std::string& out = values.name(column.name);
  if (value.kind == RecordValue::Kind::Text)
    values.appendText(value.text);
  else if (value.kind == RecordValue::Kind::Number && std::isfinite(value.number))
    appendRecordNumber(out, value, column.scaled);
  else
    out += "null";
}

void addLabels(Object& datum, std::string& out, const RecordColumn& column) {
  if (column.labels.empty()) return;
  datum.name("labels") += '[';
  for (const RecordLabel& label : column.labels) {
    if (&label != &column.labels.front()) out += ',';
    Object one(out);
    one.number(label.from == label.till ? "value" : "from", label.from);
    if (label.from != label.till) one.number("till", label.till);
    one.text("text", label.text);
  }
  out += ']';
}

}  // namespace

std::string answerText(const MeasurementAnswers& answer, std::string_view acquisition,
                       std::span<const std::size_t> positions) {
  const RecordGroup& group = answer.head().groups[answer.group()];
  const auto values = answer.values();
  std::string out;
  {
    Object object(out);
    object.name("t") += std::to_string(answer.utcNanoseconds());
    object.text("acquisition", acquisition);
    object.text("recording", answer.recording());
    object.name("seq") += std::to_string(answer.sequence());
    Object of(object.name("values"));
    for (const std::size_t i : positions) addValue(of, group.columns[i], values[i]);
  }
  return out;
}

std::string descriptionText(const RecordGroup& group, std::span<const std::size_t> positions) {
  std::string out;
  {
    Object object(out);
    object.text("ecu", group.ecu);
    object.text("request", group.request);
    Object data(object.name("data"));
    for (const std::size_t i : positions) {
      const RecordColumn& column = group.columns[i];
      Object datum(data.name(column.name));
      datum.text("unit", column.unit);
      if (column.range) {
        datum.number("minimum", column.range->first);
        datum.number("maximum", column.range->second);
      }
      addLabels(datum, out, column);
    }
  }
  return out;
}

std::string stateText(std::string_view state, std::string_view acquisition, std::string_view recording) {
  std::string out;
  {
    Object object(out);
    object.text("state", state);
    object.text("acquisition", acquisition);
    object.text("recording", recording);
  }
  return out;
}

}  // namespace tarnlog
