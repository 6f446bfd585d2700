// Dates and times as the databases write them in text ("2024-02-29", "2024-02-29 13:45:10.5",
// "13:45:10", with an optional "T" and a zone suffix that is ignored), turned into the grid's date
// serials (days since 30 December 1899, the time of day as the fraction).
#pragma once

#include <optional>
#include <string_view>

namespace quilta::data {

std::optional<double> DateSerialFromText(std::string_view text);

}  // namespace quilta::data
