#include <nlohmann/json.hpp>

#include "console.h"
#include "writers.h"

namespace zenithor::almanac {

namespace {

using Json = nlohmann::ordered_json;

std::string Line(const Json& json) {
  // A file's name may be no UTF-8.
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json CellJson(const Cell& cell, const Column& column, const Clock& clock) {
  if (const auto* const number = std::get_if<double>(&cell)) {
    return *number;
  }
  if (const auto* const text = std::get_if<std::string>(&cell)) {
    return *text;
  }
  if (const auto* const moment = std::get_if<Moment>(&cell)) {
    return column.kind == Column::Kind::kDate ? DateText(clock, moment->day)
                                              : IsoText(clock, moment->day);
  }
  return nullptr;
}

std::string RowLine(const Row& row, const std::vector<Column>& columns, const Clock& clock) {
  Json object = Json::object();
  for (std::size_t k = 0; k < columns.size(); ++k) {
    object[columns[k].name] = k < row.size() ? CellJson(row[k], columns[k], clock) : Json();
  }
  return Line(object);
}

class JsonLinesWriter : public Writer {
 public:
  explicit JsonLinesWriter(const Clock& clock) : clock_(clock) {}

  void Head(const std::vector<std::string>& /*lines*/) override {}
  void BeginTable(const std::string& /*name*/, const std::vector<Column>& columns) override {
    columns_ = columns;
    ++tables_;
  }
  void AddRow(const Row& row) override {
    if (tables_ == 1) {
      WriteOut(RowLine(row, columns_, clock_) + "\n");
    }
  }
  void EndTable() override {}
  void Finish(const std::vector<std::string>& /*notes*/) override { FlushOut(); }

 private:
  Clock clock_;
  std::vector<Column> columns_;
  int tables_ = 0;
};

class JsonWriter : public Writer {
 public:
  explicit JsonWriter(const Clock& clock) : clock_(clock) {}

  void Head(const std::vector<std::string>& lines) override {
    WriteOut("{\n  \"head\": " + Line(lines) + ",\n  \"clock\": " + Line(clock_.name) +
             ",\n  \"tables\": [");
  }

  void BeginTable(const std::string& name, const std::vector<Column>& columns) override {
    columns_ = columns;
    Json units = Json::object();
    for (const Column& column : columns) {
      if (!column.unit.empty()) {
        units[column.name] = column.unit;
      }
    }
    WriteOut(std::string(tables_ == 0 ? "" : ",") + "\n    {\"name\": " + Line(name) +
             ", \"units\": " + Line(units) + ", \"rows\": [");
    ++tables_;
    rows_ = 0;
  }

  void AddRow(const Row& row) override {
    WriteOut((rows_++ == 0 ? "\n      " : ",\n      ") + RowLine(row, columns_, clock_));
  }

  void EndTable() override { WriteOut(rows_ == 0 ? "]}" : "\n    ]}"); }

  void Finish(const std::vector<std::string>& notes) override {
    WriteOut("\n  ],\n  \"notes\": " + Line(notes) + "\n}\n");
    FlushOut();
  }

 private:
  Clock clock_;
  std::vector<Column> columns_;
  int tables_ = 0;
  long long rows_ = 0;
};

}  // namespace

std::unique_ptr<Writer> NewJsonWriter(const Clock& clock) {
  return std::make_unique<JsonWriter>(clock);
}

std::unique_ptr<Writer> NewJsonLinesWriter(const Clock& clock) {
  return std::make_unique<JsonLinesWriter>(clock);
}

}  // namespace zenithor::almanac
