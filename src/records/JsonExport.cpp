#include "records/JsonExport.h"

#include <cmath>
#include <utility>

#include "records/RecordNames.h"

namespace tarnlog {

namespace {

constexpr std::size_t kBlock = 256 * 1024;

void appendText(std::string& out, std::string_view text) {
  static constexpr std::string_view kDigits = "0123456789abcdef";
  out += '"';
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += {'\\', c};
    } else if (byte < ' ') {
      out.append("\\u00") += {kDigits[byte >> 4U], kDigits[byte & 0xFU]};
    } else {
      out += c;
    }
  }
  out += '"';
}

void appendMember(std::string& out, std::string_view name, std::string_view text) {
  out += ',';
  appendText(out, name);
  out += ':';
  appendText(out, text);
}

void appendValue(std::string& out, const RecordValue& value, bool scaled) {
  if (value.kind == RecordValue::Kind::Text)
    appendText(out, value.text);
  else if (value.kind == RecordValue::Kind::Number && std::isfinite(value.number))
    appendRecordNumber(out, value, scaled);
  else
    out += "null";
}

void appendLabels(std::string& out, const std::vector<RecordLabel>& labels) {
  if (labels.empty()) return;
  out += ",\"labels\":[";
  for (const RecordLabel& label : labels) {
    if (&label != &labels.front()) out += ',';
    out += label.from == label.till ? "{\"value\":" : "{\"from\":";
    appendValue(out, {RecordValue::Kind::Number, label.from, {}}, false);
    if (label.from != label.till) {
      out += ",\"till\":";
      appendValue(out, {RecordValue::Kind::Number, label.till, {}}, false);
    }
    appendMember(out, "text", label.text);
    out += '}';
  }
  out += ']';
}

const char* typeOf(RecordNote::Kind kind) {
  switch (kind) {
    case RecordNote::Kind::Gap:
      return "gap";
    case RecordNote::Kind::Failure:
      return "failure";
    case RecordNote::Kind::ClockStep:
      return "clock step";
    default:
      return "mark";
  }
}

const char* markKind(RecordNote::Kind kind) {
  return kind == RecordNote::Kind::Start ? "start" : kind == RecordNote::Kind::Stop ? "stop" : "event";
}

}  // namespace

JsonExport::JsonExport(const std::vector<RecordHead>& recordings, ExportChoice choice, ExportOutput output)
    : recordings_(recordings), choice_(std::move(choice)), output_(std::move(output)) {}

void JsonExport::recording(std::size_t position) {
  if (position != 0) {
    out_ += "{\"type\":\"end\"}";
    endLine();
  }
  recording_ = position;
  names_ = shortNames(head());
  for (std::size_t g = 0; g < names_.size(); ++g)
    for (std::size_t c = 0; c < names_[g].size(); ++c)
      if (!choice_.takes(head().groups[g].columns[c])) names_[g][c].clear();
  appendHead(head());
}

void JsonExport::appendHead(const RecordHead& head) {
  out_ += "{\"type\":\"begin\",\"recording\":" + std::to_string(recording_ + 1);
  if (head.utcNanoseconds) out_ += ",\"t\":" + std::to_string(*head.utcNanoseconds);
  bool first = true;
  for (const auto& [name, text] : head.facts) {
    if (text.empty()) continue;
    out_ += std::exchange(first, false) ? ",\"facts\":{" : ",";
    appendText(out_, name);
    out_ += ':';
    appendText(out_, text);
  }
  out_ += first ? ",\"data\":[" : "},\"data\":[";
  first = true;
  for (std::size_t g = 0; g < names_.size(); ++g) {
    for (std::size_t c = 0; c < names_[g].size(); ++c) {
      if (names_[g][c].empty()) continue;
      const RecordColumn& column = head.groups[g].columns[c];
      out_ += std::exchange(first, false) ? "{\"name\":" : ",{\"name\":";
      appendText(out_, names_[g][c]);
      appendMember(out_, "ecu", column.ecu);
      appendMember(out_, "request", column.request);
      appendMember(out_, "unit", column.unit);
      appendLabels(out_, column.labels);
      out_ += '}';
    }
  }
  out_ += "]}";
  endLine();
}

void JsonExport::begin(const char* type, double time, std::string_view timeText) {
  out_.append("{\"type\":\"").append(type).append("\"");
  if (head().utcNanoseconds) out_ += ",\"t\":" + std::to_string(utcOf(head(), time));
  out_ += ",\"time\":";
  appendRecordTime(out_, time, timeText);
}

void JsonExport::row(const RecordRow& row) {
  if (!choice_.takes(row.time)) return;
  const RecordGroup& group = head().groups[row.group];
  bool any = false;
  for (const std::string& name : names_[row.group]) any = any || !name.empty();
  if (!any) return;
  const bool answer = !group.request.empty();
  begin(answer ? "answer" : "row", row.time, row.timeText);
  if (row.requestTime && head().utcNanoseconds)
    out_ += ",\"sent\":" + std::to_string(utcOf(head(), *row.requestTime));
  if (answer) {
    appendMember(out_, "ecu", group.ecu);
    appendMember(out_, "request", group.request);
  }
  if (row.sequence) out_ += ",\"seq\":" + std::to_string(*row.sequence);
  appendValues(row);
  out_ += '}';
  endLine();
}

void JsonExport::appendValues(const RecordRow& row) {
  out_ += ",\"values\":{";
  bool first = true;
  const std::vector<std::string>& names = names_[row.group];
  for (std::size_t c = 0; c < names.size(); ++c) {
    if (names[c].empty()) continue;
    if (!std::exchange(first, false)) out_ += ',';
    appendText(out_, names[c]);
    out_ += ':';
    appendValue(out_, row.values[c], head().groups[row.group].columns[c].scaled);
  }
  out_ += '}';
}

void JsonExport::note(const RecordNote& note) {
  if (!choice_.takes(note.time)) return;
  using Kind = RecordNote::Kind;
  const std::string_view type = typeOf(note.kind);
  begin(type.data(), note.time, {});
  if (type == "mark") appendMember(out_, "kind", markKind(note.kind));
  if (note.kind == Kind::Gap || note.kind == Kind::ClockStep) {
    out_ += note.kind == Kind::Gap ? ",\"till\":" : ",\"seconds\":";
    appendRecordTime(out_, note.till, {});
  }
  if (note.number != 0) out_ += ",\"number\":" + std::to_string(note.number);
  if (!note.text.empty()) appendMember(out_, note.kind == Kind::Failure ? "reason" : "name", note.text);
  out_ += '}';
  endLine();
}

void JsonExport::endLine() {
  out_ += '\n';
  if (out_.size() < kBlock) return;
  output_(out_);
  out_.clear();
}

void JsonExport::finish(const std::vector<std::string>& missing) {
  out_ += "{\"type\":\"end\"";
  if (!missing.empty()) {
    out_ += ",\"missing\":[";
    for (const std::string& each : missing) {
      if (&each != &missing.front()) out_ += ',';
      appendText(out_, each);
    }
    out_ += ']';
  }
  out_ += "}\n";
  output_(out_);
  out_.clear();
}

}  // namespace tarnlog
