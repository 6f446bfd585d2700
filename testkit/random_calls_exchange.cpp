#include "random_calls_support.hpp"

namespace quilta::testkit {

void AddExchangeCalls(RandomCallTable&) {}

}  // namespace quilta::testkit
