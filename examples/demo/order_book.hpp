// The demo's data: the shipped order book in a SQLite database, loaded into grids through the
// record-set adapter. Nothing here depends on Qt.
#pragma once

#include <cstdint>
#include <quilta/data/sqlite.hpp>
#include <quilta/quilta.hpp>
#include <string>

namespace demo {

// Column keys of the orders grid (the database's field names).
namespace col {
inline constexpr const char* kOrder = "OrderID";
inline constexpr const char* kDate = "OrderDate";
inline constexpr const char* kCustomer = "Customer";
inline constexpr const char* kCity = "City";
inline constexpr const char* kCountry = "Country";
inline constexpr const char* kProduct = "Product";
inline constexpr const char* kQuantity = "Quantity";
inline constexpr const char* kPrice = "UnitPrice";
inline constexpr const char* kDiscount = "Discount";
inline constexpr const char* kTotal = "Total";
inline constexpr const char* kShipVia = "ShipVia";
inline constexpr const char* kShipped = "Shipped";
inline constexpr const char* kShippedOn = "ShippedDate";
}  // namespace col

// Icons of the demo's image list (1-based, as cells name them).
enum Icon : int16_t {
  kIconShipped = 1,
  kIconPending = 2,
  kIconSpeedy = 3,
  kIconUnited = 4,
  kIconFederal = 5,
  kIconCustomer = 6,
  kIconCount = 6
};

// Creates the database from the CSV file when the database file does not exist yet.
void EnsureOrderDatabase(const std::string& csvPath, const std::string& dbPath);

// Fills an empty grid with the orders: the shipped ones, or `rows` orders made from them when
// rows > 0 (order numbers and dates move on with every copy). Returns the number of rows.
int32_t LoadOrders(quilta::Quilta& grid, quilta::data::SqliteDatabase& db, int32_t rows);

// Headers, widths, formats, the check-box and combo columns, icons and colours.
void FormatOrders(quilta::Quilta& grid);

// The orders of a loaded orders grid as a tree: one node per customer (with its order count
// and sum), the customer's orders below it.
void LoadOrderTree(quilta::Quilta& tree, const quilta::Quilta& orders);

// Whether a value may go into an orders column: empty when it may, else what is wrong with it.
// A discount typed as a whole percentage ("15") becomes its fraction (0.15).
std::string CheckOrderValue(const std::string& colKey, quilta::Variant& value);

// Whether the user may edit a column (computed ones may not).
bool OrderColumnEditable(const std::string& colKey);

// The line total of an order row, recomputed after its quantity, price or discount changed.
void UpdateTotal(quilta::Quilta& grid, int32_t row);

}  // namespace demo
