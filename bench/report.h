#pragma once

#include <fstream>
#include <string>
#include <vector>

namespace quorvale {

// A column of figures, with its unit in the name.
struct Column {
  std::string name;
  int digits = 1;  // after the decimal point
};

// Prints tables, and also writes each row as a line of JSON.
class Report {
 public:
  // Appends to that file; an empty path writes none.
  explicit Report(const std::string& json_path);

  void Begin(const std::string& title, std::vector<Column> columns);
  // As many values as the table has columns. NaN: not measured.
  void Row(const std::string& label, const std::vector<double>& values);
  // A remark under the rows.
  static void Remark(const std::string& text);

 private:
  std::ofstream json_;
  std::string title_;
  std::vector<Column> columns_;
};

}  // namespace quorvale
