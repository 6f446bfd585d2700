// quilta::Font: a font description. Fonts are values: the grid keeps one shared copy of each
// distinct font and hands out copies, so changing a returned font changes no cell until it is
// assigned again.
#pragma once

#include <memory>
#include <string>

namespace quilta {

struct Font {
  std::string name = "Segoe UI";
  double size = 9.0;  // points
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikethrough = false;

  friend bool operator==(const Font&, const Font&) = default;
};

inline std::shared_ptr<Font> MakeFont(std::string name, double size, bool bold = false,
                                      bool italic = false) {
  auto f = std::make_shared<Font>();
  f->name = std::move(name);
  f->size = size;
  f->bold = bold;
  f->italic = italic;
  return f;
}

}  // namespace quilta
