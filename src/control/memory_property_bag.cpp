#include <quilta/host.hpp>

namespace quilta {

Variant MemoryPropertyBag::ReadProperty(std::string_view name, const Variant& defaultValue) {
  auto it = values_.find(name);
  return it == values_.end() ? defaultValue : it->second;
}

void MemoryPropertyBag::WriteProperty(std::string_view name, const Variant& value,
                                      const Variant& defaultValue) {
  auto it = values_.find(name);
  if (value == defaultValue) {
    if (it != values_.end()) values_.erase(it);
  } else if (it == values_.end()) {
    values_.emplace(std::string(name), value);
  } else {
    it->second = value;
  }
}

bool MemoryPropertyBag::Contains(std::string_view name) const { return values_.count(name) > 0; }

void MemoryPropertyBag::Set(std::string_view name, const Variant& value) {
  values_.insert_or_assign(std::string(name), value);
}

}  // namespace quilta
