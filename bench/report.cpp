#include "report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace quorvale {
namespace {

constexpr int kLabelWidth = 34;
constexpr int kLeastWidth = 9;

int WidthOf(const Column& column) { return std::max(kLeastWidth, static_cast<int>(column.name.size())) + 2; }

std::string Format(double value, int digits) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", digits, value);
  return text;
}

}  // namespace

Report::Report(const std::string& json_path) {
  if (!json_path.empty()) json_.open(json_path, std::ios::app);
}

void Report::Begin(const std::string& title, std::vector<Column> columns) {
  title_ = title;
  columns_ = std::move(columns);
  std::printf("\n%s\n%-*s", title.c_str(), kLabelWidth, "");
  for (const Column& column : columns_) std::printf("%*s", WidthOf(column), column.name.c_str());
  std::printf("\n");
  std::fflush(stdout);
}

// Titles, labels and names are the bench's own and need no escapes in JSON.
void Report::Row(const std::string& label, const std::vector<double>& values) {
  std::printf("%-*s", kLabelWidth, label.c_str());
  json_ << R"({"table": ")" << title_ << R"(", "row": ")" << label << R"(", "values": {)";
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const bool measured = std::isfinite(values.at(i));
    const std::string text = measured ? Format(values[i], columns_[i].digits) : "-";
    std::printf("%*s", WidthOf(columns_[i]), text.c_str());
    json_ << (i > 0 ? ", " : "") << '"' << columns_[i].name << "\": " << (measured ? text : "null");
  }
  std::printf("\n");
  std::fflush(stdout);
  json_ << "}}" << std::endl;
}

void Report::Remark(const std::string& text) {
  std::printf("  %s\n", text.c_str());
  std::fflush(stdout);
}

}  // namespace quorvale
