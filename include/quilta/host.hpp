// Services the host provides to the control: the property store and change notification.
#pragma once

#include <map>
#include <quilta/variant.hpp>
#include <string>
#include <string_view>

namespace quilta {

// The host's property store, read and written by name.
class PropertyBag {
 public:
  virtual ~PropertyBag() = default;
  virtual Variant ReadProperty(std::string_view name, const Variant& defaultValue) = 0;
  virtual void WriteProperty(std::string_view name, const Variant& value,
                             const Variant& defaultValue) = 0;
};

// A ready in-memory property store. Values equal to their default are not kept, as a design-time
// store would do.
class MemoryPropertyBag : public PropertyBag {
 public:
  Variant ReadProperty(std::string_view name, const Variant& defaultValue) override;
  void WriteProperty(std::string_view name, const Variant& value,
                     const Variant& defaultValue) override;
  bool Contains(std::string_view name) const;
  size_t Size() const { return values_.size(); }
  void Set(std::string_view name, const Variant& value);
  void Clear() { values_.clear(); }

 private:
  std::map<std::string, Variant, std::less<>> values_;
};

// The host's container services; override what you use.
class HostSite {
 public:
  virtual ~HostSite() = default;
  // A persisted property changed: the host marks its design as modified.
  virtual void PropertyChanged(std::string_view /*name*/) {}
};

}  // namespace quilta
