// An example host: loads an order book from CSV into a headless grid, works on it through keys,
// insertion, removal and update suspension, and prints the grid as an aligned text table.
//
//   orders_report [file.csv] [--rows N]     (N = how many rows to print; all by default)

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <quilta/quilta.hpp>
#include <sstream>
#include <string>
#include <vector>

using quilta::Quilta;
using quilta::Variant;

namespace {

using Record = std::vector<std::string>;

// Splits one CSV line (RFC 4180 quoting, no line breaks inside fields).
Record ParseCsvLine(const std::string& line) {
  Record fields(1);
  bool quoted = false;
  for (size_t i = 0; i < line.size(); ++i) {
    char ch = line[i];
    if (quoted && ch == '"' && i + 1 < line.size() && line[i + 1] == '"') {
      fields.back() += '"';
      ++i;
    } else if (ch == '"') {
      quoted = !quoted;
    } else if (ch == ',' && !quoted) {
      fields.emplace_back();
    } else if (ch != '\r') {
      fields.back() += ch;
    }
  }
  return fields;
}

std::vector<Record> ReadCsv(const std::string& path) {
  std::ifstream in(path);
  if (!in) throw std::runtime_error("cannot open " + path);
  std::vector<Record> records;
  for (std::string line; std::getline(in, line);)
    if (!line.empty()) records.push_back(ParseCsvLine(line));
  return records;
}

// How each CSV column becomes a cell value, and how the grid shows it.
struct ColumnPlan {
  const char* key;
  enum Kind { kText, kLong, kDate, kCurrency, kDouble } kind;
  const char* format;
};

const ColumnPlan kPlans[] = {
    {"OrderID", ColumnPlan::kLong, ""},
    {"OrderDate", ColumnPlan::kDate, "dd-mmm-yyyy"},
    {"Customer", ColumnPlan::kText, ""},
    {"City", ColumnPlan::kText, ""},
    {"Country", ColumnPlan::kText, ""},
    {"Product", ColumnPlan::kText, ""},
    {"Quantity", ColumnPlan::kLong, "#,##0"},
    {"UnitPrice", ColumnPlan::kCurrency, "Currency"},
    {"Discount", ColumnPlan::kDouble, "0%"},
    {"ShipVia", ColumnPlan::kText, ""},
    {"ShippedDate", ColumnPlan::kDate, "dd-mmm-yyyy"},
};

Variant ToValue(const std::string& text, ColumnPlan::Kind kind) {
  if (kind != ColumnPlan::kText && text.empty()) return Variant::Null();
  switch (kind) {
    case ColumnPlan::kLong:
      return quilta::CLng(text);
    case ColumnPlan::kDate:
      return quilta::CDate(text);
    case ColumnPlan::kCurrency:
      return quilta::CCur(text);
    case ColumnPlan::kDouble:
      return quilta::CDbl(text);
    case ColumnPlan::kText:
      break;
  }
  return Variant(text);
}

void AddColumns(Quilta& grid) {
  for (const ColumnPlan& plan : kPlans) {
    auto cell = grid.AddCol({.sKey = plan.key, .sHeader = plan.key});
    cell->SetsFmtString(plan.format);
    if (plan.kind != ColumnPlan::kText && plan.kind != ColumnPlan::kDate)
      cell->SeteAlignH(quilta::quAlignHRight);
  }
  auto total = grid.AddCol({.sKey = "Total", .sHeader = "Total"});
  total->SetsFmtString("$#,##0.00");
  total->SeteAlignH(quilta::quAlignHRight);
}

// Loads every record in one suspended update: one row pass and one redraw at the end.
void Load(Quilta& grid, const std::vector<Record>& records) {
  grid.BeginUpdate();
  const int32_t first = grid.AddRow({.lCount = static_cast<int32_t>(records.size())});
  for (size_t i = 0; i < records.size(); ++i) {
    const int32_t row = first + static_cast<int32_t>(i);
    const Record& rec = records[i];
    for (size_t c = 0; c < std::size(kPlans) && c < rec.size(); ++c)
      grid.SetCellValue(row, kPlans[c].key, ToValue(rec[c], kPlans[c].kind));
    grid.SetRowKey(row, rec[0]);
    double total = quilta::CDbl(grid.CellValue(row, "Quantity")) *
                   quilta::CDbl(grid.CellValue(row, "UnitPrice")) *
                   (1 - quilta::CDbl(grid.CellValue(row, "Discount")));
    grid.SetCellValue(row, "Total", total);
  }
  grid.EndUpdate();
}

// Orders never shipped are taken out; runs of them leave in one call each.
int32_t RemoveUnshipped(Quilta& grid) {
  int32_t removed = 0;
  grid.BeginUpdate();
  for (int32_t row = grid.RowCount(); row >= 1; --row) {
    if (!grid.CellValue(row, "ShippedDate").IsNull()) continue;
    int32_t start = row;
    while (start > 1 && grid.CellValue(start - 1, "ShippedDate").IsNull()) --start;
    grid.RemoveRow(start, row - start + 1);
    removed += row - start + 1;
    row = start;
  }
  grid.EndUpdate();
  return removed;
}

// Display width of UTF-8 text: one column per code point.
size_t Width(const std::string& s) {
  return static_cast<size_t>(
      std::count_if(s.begin(), s.end(), [](char ch) { return (ch & 0xC0) != 0x80; }));
}

void PrintTable(Quilta& grid, int32_t maxRows) {
  const int32_t cols = grid.ColCount();
  const int32_t rows = maxRows >= 0 ? std::min(maxRows, grid.RowCount()) : grid.RowCount();
  std::vector<std::vector<std::string>> text(rows + 1, std::vector<std::string>(cols));
  std::vector<size_t> widths(cols, 0);
  for (int32_t c = 1; c <= cols; ++c) {
    text[0][c - 1] = grid.ColKey(c);
    for (int32_t r = 1; r <= rows; ++r) text[r][c - 1] = grid.CellText(r, c);
    for (int32_t r = 0; r <= rows; ++r)
      widths[c - 1] = std::max(widths[c - 1], Width(text[r][c - 1]));
  }
  for (int32_t r = 0; r <= rows; ++r) {
    std::string line;
    for (int32_t c = 1; c <= cols; ++c) {
      const std::string& cell = text[r][c - 1];
      std::string pad(widths[c - 1] - Width(cell), ' ');
      bool right = r > 0 && grid.CellAlignH(r, c) == quilta::quAlignHRight;
      line += (right ? pad + cell : cell + pad) + (c < cols ? " | " : "");
    }
    std::cout << line << '\n';
    if (r == 0) {
      std::string rule;
      for (int32_t c = 1; c <= cols; ++c)
        rule += std::string(widths[c - 1], '-') + (c < cols ? "-+-" : "");
      std::cout << rule << '\n';
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::string path = QUILTA_EXAMPLE_DATA;
  int32_t maxRows = -1;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    if (arg == "--rows" && i + 1 < argc) {
      maxRows = std::stoi(argv[++i]);
    } else {
      path = arg;
    }
  }
  try {
    std::vector<Record> records = ReadCsv(path);
    if (records.size() < 2) throw std::runtime_error("no records in " + path);
    records.erase(records.begin());  // the header line

    Quilta grid;
    AddColumns(grid);
    Load(grid, records);
    std::cerr << "loaded " << grid.RowCount() << " orders into " << grid.ColCount() << " columns\n";

    int32_t at = grid.RowIndex("10500");
    grid.AddRow({.sKey = "manual-1", .vRowBefore = "10500"});
    grid.SetCellValue("manual-1", "OrderID", 0);
    grid.SetCellValue("manual-1", "Customer", "(inserted by the example host)");
    std::cerr << "order 10500 was row " << at << ", now row " << grid.RowIndex("10500")
              << " after an insertion before it\n";

    int32_t removed = RemoveUnshipped(grid);
    std::cerr << "removed " << removed << " unshipped orders; " << grid.RowCount()
              << " rows remain, " << grid.Sys(quilta::quSysMemMngFreePhysRows)
              << " physical rows are free for reuse\n";
    try {
      grid.AddRow({.sKey = "10500"});
    } catch (const quilta::Error& e) {
      std::cerr << "a second row with key 10500 is refused: error " << e.Code() << " \""
                << e.Description() << "\"\n";
    }
    PrintTable(grid, maxRows);
  } catch (const std::exception& e) {
    std::cerr << "orders_report: " << e.what() << '\n';
    return 1;
  }
  return 0;
}
