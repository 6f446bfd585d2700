// A rasteriser for the recording painter, good enough to judge placement by eye: rectangles,
// lines, triangles for sort marks, blocks for characters and images.
#include <algorithm>
#include <cstdio>
#include <fstream>

#include "header_test_support.hpp"

namespace quilta::testing {
namespace {

struct Canvas {
  int32_t w, h;
  std::vector<uint32_t> px;  // 0x00BBGGRR
  Rect clip;
  void Set(int32_t x, int32_t y, Color c) {
    if (clip.Contains({x, y}) && x >= 0 && y >= 0 && x < w && y < h) px[y * w + x] = c;
  }
  void Blend(int32_t x, int32_t y, Color c, int alpha) {
    if (!clip.Contains({x, y}) || x < 0 || y < 0 || x >= w || y >= h) return;
    uint32_t& d = px[y * w + x];
    uint32_t out = 0;
    for (int s = 0; s < 24; s += 8) {
      int a = (d >> s) & 0xFF, b = (static_cast<uint32_t>(c) >> s) & 0xFF;
      out |= static_cast<uint32_t>((a * (255 - alpha) + b * alpha) / 255) << s;
    }
    d = out;
  }
  void Fill(const Rect& r, Color c) {
    for (int32_t y = r.top; y < r.bottom; ++y)
      for (int32_t x = r.left; x < r.right; ++x) Set(x, y, c);
  }
  void Line(Point a, Point b, Color c, int32_t thick) {
    const int32_t n = std::max(std::abs(b.x - a.x), std::abs(b.y - a.y));
    for (int32_t i = 0; i <= n; ++i) {
      const int32_t x = n ? a.x + (b.x - a.x) * i / n : a.x;
      const int32_t y = n ? a.y + (b.y - a.y) * i / n : a.y;
      Fill({x, y, x + thick, y + thick}, c);
    }
  }
};

void Text(Canvas& cv, const PaintCall& c) {
  // Headless metrics: 6 px per character, 15 px per line (Segoe UI 9).
  const int32_t width = static_cast<int32_t>(c.text.size()) * 6;
  int32_t x = c.rect.left;
  if (c.flags & quTextCenter) x = c.rect.left + (c.rect.Width() - width) / 2;
  if (c.flags & quTextRight) x = c.rect.right - width;
  int32_t y = c.rect.top;
  if (c.flags & quTextVCenter) y = c.rect.top + (c.rect.Height() - 15) / 2;
  if (c.flags & quTextBottom) y = c.rect.bottom - 15;
  const Rect keep = cv.clip;
  if (!(c.flags & quTextNoClip)) cv.clip = cv.clip.Intersection(c.rect);
  for (size_t i = 0; i < c.text.size(); ++i) {
    if (c.text[i] == ' ') continue;
    const int32_t cx = x + static_cast<int32_t>(i) * 6;
    cv.Fill({cx, y + 4, cx + 5, y + 12}, c.color);
  }
  cv.clip = keep;
}

void Draw(Canvas& cv, const PaintCall& c) {
  cv.clip = c.clip;
  const Rect& r = c.rect;
  switch (c.kind) {
    case PaintCall::Fill:
      cv.Fill(r, c.color);
      break;
    case PaintCall::FillAlpha:
      for (int32_t y = r.top; y < r.bottom; ++y)
        for (int32_t x = r.left; x < r.right; ++x) cv.Blend(x, y, c.color, c.flags);
      break;
    case PaintCall::Frame:
      cv.Fill({r.left, r.top, r.right, r.top + 1}, c.color);
      cv.Fill({r.left, r.bottom - 1, r.right, r.bottom}, c.color);
      cv.Fill({r.left, r.top, r.left + 1, r.bottom}, c.color);
      cv.Fill({r.right - 1, r.top, r.right, r.bottom}, c.color);
      break;
    case PaintCall::Line:
    case PaintCall::Dotted:
      cv.Line({r.left, r.top}, {r.right, r.bottom}, c.color, std::max(1, c.flags));
      break;
    case PaintCall::Text:
      Text(cv, c);
      break;
    case PaintCall::Image:
      cv.Fill(r, 0x3070D0);
      break;
    case PaintCall::HeaderItem: {
      const Color face = c.state.pressed ? 0xD8C8B8 : c.state.hot ? 0xFBEAD9 : 0xFFFFFF;
      cv.Fill(r, face);
      cv.Fill({r.right - 1, r.top + 3, r.right, r.bottom - 3}, 0xE5E5E5);
      cv.Fill({r.left, r.bottom - 1, r.right, r.bottom}, 0xE5E5E5);
      break;
    }
    case PaintCall::SortMark:
      for (int32_t y = 0; y < r.Height(); ++y) {
        const int32_t row = c.ascending ? y : r.Height() - 1 - y;
        const int32_t half = row * r.Width() / (2 * r.Height());
        const int32_t mid = r.left + r.Width() / 2;
        cv.Fill({mid - half - 1, r.top + y, mid + half + 1, r.top + y + 1}, c.color);
      }
      break;
    default:
      cv.Fill(r, 0x808080);
      break;
  }
}

uint32_t Crc32(const unsigned char* data, size_t n, uint32_t crc = 0) {
  crc = ~crc;
  for (size_t i = 0; i < n; ++i) {
    crc ^= data[i];
    for (int k = 0; k < 8; ++k) crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
  }
  return ~crc;
}

// A zlib stream of stored (uncompressed) blocks: no compression library needed for pictures.
std::vector<unsigned char> Stored(const std::vector<unsigned char>& raw) {
  std::vector<unsigned char> z = {0x78, 0x01};
  size_t pos = 0;
  do {
    const size_t n = std::min<size_t>(65535, raw.size() - pos);
    const bool last = pos + n == raw.size();
    z.insert(z.end(), {static_cast<unsigned char>(last), static_cast<unsigned char>(n),
                       static_cast<unsigned char>(n >> 8), static_cast<unsigned char>(~n),
                       static_cast<unsigned char>(~n >> 8)});
    z.insert(z.end(), raw.begin() + static_cast<std::ptrdiff_t>(pos),
             raw.begin() + static_cast<std::ptrdiff_t>(pos + n));
    pos += n;
  } while (pos < raw.size());
  uint32_t a = 1, b = 0;
  for (unsigned char c : raw) {
    a = (a + c) % 65521;
    b = (b + a) % 65521;
  }
  const uint32_t adler = (b << 16) | a;
  z.insert(z.end(),
           {static_cast<unsigned char>(adler >> 24), static_cast<unsigned char>(adler >> 16),
            static_cast<unsigned char>(adler >> 8), static_cast<unsigned char>(adler)});
  return z;
}

void Chunk(std::ofstream& out, const char* type, const std::vector<unsigned char>& data) {
  auto be = [&](uint32_t v) {
    const unsigned char b[4] = {static_cast<unsigned char>(v >> 24),
                                static_cast<unsigned char>(v >> 16),
                                static_cast<unsigned char>(v >> 8), static_cast<unsigned char>(v)};
    out.write(reinterpret_cast<const char*>(b), 4);
  };
  be(static_cast<uint32_t>(data.size()));
  out.write(type, 4);
  out.write(reinterpret_cast<const char*>(data.data()), static_cast<std::streamsize>(data.size()));
  uint32_t crc = Crc32(reinterpret_cast<const unsigned char*>(type), 4);
  be(Crc32(data.data(), data.size(), crc));
}

}  // namespace

void WritePicture(const RecordingPainter& p, Size size, const std::string& path) {
  Canvas cv{size.cx, size.cy, std::vector<uint32_t>(size.cx * size.cy, 0xFFFFFF), {}};
  for (const PaintCall& c : p.calls) Draw(cv, c);
  std::vector<unsigned char> raw;
  for (int32_t y = 0; y < size.cy; ++y) {
    raw.push_back(0);
    for (int32_t x = 0; x < size.cx; ++x) {
      const uint32_t v = cv.px[y * size.cx + x];
      raw.insert(raw.end(), {static_cast<unsigned char>(v), static_cast<unsigned char>(v >> 8),
                             static_cast<unsigned char>(v >> 16)});
    }
  }
  const std::vector<unsigned char> z = Stored(raw);
  std::ofstream out(path, std::ios::binary);
  out.write("\x89PNG\r\n\x1a\n", 8);
  std::vector<unsigned char> ihdr(13, 0);
  for (int i = 0; i < 4; ++i) {
    ihdr[i] = static_cast<unsigned char>(size.cx >> (24 - 8 * i));
    ihdr[4 + i] = static_cast<unsigned char>(size.cy >> (24 - 8 * i));
  }
  ihdr[8] = 8;
  ihdr[9] = 2;
  Chunk(out, "IHDR", ihdr);
  Chunk(out, "IDAT", z);
  Chunk(out, "IEND", {});
}

}  // namespace quilta::testing
