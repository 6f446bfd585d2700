#include "raster.hpp"

#include <algorithm>
#include <cmath>
#include <fstream>

namespace quilta::test {
namespace {

uint32_t Crc(const uint8_t* data, size_t n, uint32_t crc = 0xFFFFFFFFu) {
  for (size_t i = 0; i < n; ++i) {
    crc ^= data[i];
    for (int k = 0; k < 8; ++k) crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
  }
  return crc;
}

void Put32(std::vector<uint8_t>& out, uint32_t v) {
  for (int s = 24; s >= 0; s -= 8) out.push_back(static_cast<uint8_t>(v >> s));
}

void Chunk(std::vector<uint8_t>& png, const char* type, const std::vector<uint8_t>& data) {
  Put32(png, static_cast<uint32_t>(data.size()));
  std::vector<uint8_t> body(type, type + 4);
  body.insert(body.end(), data.begin(), data.end());
  png.insert(png.end(), body.begin(), body.end());
  Put32(png, Crc(body.data(), body.size()) ^ 0xFFFFFFFFu);
}

// zlib data in stored (uncompressed) deflate blocks: no library needed.
std::vector<uint8_t> Stored(const std::vector<uint8_t>& raw) {
  std::vector<uint8_t> z{0x78, 0x01};
  uint32_t a = 1, b = 0;
  for (uint8_t v : raw) a = (a + v) % 65521, b = (b + a) % 65521;
  for (size_t at = 0; at < raw.size() || at == 0;) {
    const size_t n = std::min<size_t>(65535, raw.size() - at);
    z.push_back(at + n == raw.size() ? 1 : 0);
    z.push_back(static_cast<uint8_t>(n));
    z.push_back(static_cast<uint8_t>(n >> 8));
    z.push_back(static_cast<uint8_t>(~n));
    z.push_back(static_cast<uint8_t>(~n >> 8));
    z.insert(z.end(), raw.begin() + at, raw.begin() + at + n);
    at += n;
    if (n == 0) break;
  }
  Put32(z, (b << 16) | a);
  return z;
}

Color Mix(Color under, Color over, uint8_t alpha) {
  Color out = 0;
  for (int s = 0; s < 24; s += 8) {
    const int u = (under >> s) & 0xFF, o = (over >> s) & 0xFF;
    out |= ((o * alpha + u * (255 - alpha)) / 255) << s;
  }
  return out;
}

}  // namespace

Raster::Raster(int32_t width, int32_t height, Color background)
    : w_(width), h_(height), pixels_(static_cast<size_t>(width) * height, background) {}

void Raster::Plot(int32_t x, int32_t y, Color c, const Rect& clip, uint8_t alpha) {
  if (x < 0 || y < 0 || x >= w_ || y >= h_ || !clip.Contains({x, y})) return;
  Color& px = pixels_[static_cast<size_t>(y) * w_ + x];
  px = alpha == 255 ? c : Mix(px, c, alpha);
}

void Raster::Fill(const Rect& r, Color c, const Rect& clip, uint8_t alpha) {
  const Rect in = r.Intersection(clip).Intersection({0, 0, w_, h_});
  for (int32_t y = in.top; y < in.bottom; ++y)
    for (int32_t x = in.left; x < in.right; ++x) Plot(x, y, c, clip, alpha);
}

void Raster::Frame(const Rect& r, Color c, int32_t t, const Rect& clip) {
  Fill({r.left, r.top, r.right, r.top + t}, c, clip);
  Fill({r.left, r.bottom - t, r.right, r.bottom}, c, clip);
  Fill({r.left, r.top, r.left + t, r.bottom}, c, clip);
  Fill({r.right - t, r.top, r.right, r.bottom}, c, clip);
}

void Raster::Hatch(const PaintOp& op) {
  const Rect in = op.rect.Intersection(op.clip);
  for (int32_t y = in.top; y < in.bottom; ++y) {
    for (int32_t x = in.left; x < in.right; ++x) {
      const int32_t dx = x - op.rect.left, dy = y - op.rect.top;
      bool on = false;
      switch (op.value) {
        case quHatchHorizontal:
          on = dy % 8 == 0;
          break;
        case quHatchVertical:
          on = dx % 8 == 0;
          break;
        case quHatchFDiagonal:
          on = (dx + dy) % 8 == 0;
          break;
        case quHatchBDiagonal:
          on = ((dx - dy) % 8 + 8) % 8 == 0;
          break;
        case quHatchCross:
          on = dx % 8 == 0 || dy % 8 == 0;
          break;
        default:
          on = (dx + dy) % 8 == 0 || ((dx - dy) % 8 + 8) % 8 == 0;
          break;
      }
      if (on) Plot(x, y, op.color, op.clip);
    }
  }
}

void Raster::Text(const PaintOp& op, const Font& font) {
  const int32_t em = static_cast<int32_t>(std::lround(font.size * 96 / 72.0));
  const int32_t advance = (em + 1) / 2 + (font.bold ? 1 : 0), line = em + (em + 3) / 4;
  int32_t chars = 0;
  for (unsigned char ch : op.text) chars += (ch & 0xC0) != 0x80;
  const Rect& r = op.rect;
  const int32_t width = chars * advance;
  const int32_t left = (op.value & quTextRight)    ? r.right - width
                       : (op.value & quTextCenter) ? r.left + (r.Width() - width) / 2
                                                   : r.left;
  const int32_t top = (op.value & quTextBottom)    ? r.bottom - line
                      : (op.value & quTextVCenter) ? r.top + (r.Height() - line) / 2
                                                   : r.top;
  const Rect clip = (op.value & quTextNoClip) ? op.clip : op.clip.Intersection(r);
  int32_t i = 0;
  for (unsigned char ch : op.text) {
    if ((ch & 0xC0) == 0x80) continue;
    const int32_t x = left + i++ * advance;
    if (ch == ' ') continue;
    const bool tall = std::isupper(ch) || std::isdigit(ch) || ch == 'l' || ch == 'd' || ch == 'b';
    Fill({x + 1, top + (tall ? 3 : 6), x + advance - 1, top + line - 3}, op.color, clip);
  }
}

void Raster::Replay(const RecordingPainter& painter) {
  for (const PaintOp& op : painter.Ops()) {
    switch (op.kind) {
      case PaintOpKind::FillRect:
        Fill(op.rect, op.color, op.clip);
        break;
      case PaintOpKind::FillRectAlpha:
        Fill(op.rect, op.color, op.clip, static_cast<uint8_t>(op.value));
        break;
      case PaintOpKind::FrameRect:
        Frame(op.rect, op.color, op.value, op.clip);
        break;
      case PaintOpKind::Line:
        Fill({std::min(op.from.x, op.to.x), std::min(op.from.y, op.to.y),
              std::max(op.from.x, op.to.x) + op.value, std::max(op.from.y, op.to.y) + op.value},
             op.color, op.clip);
        break;
      case PaintOpKind::DottedLine:
        for (int32_t y = op.from.y; y <= op.to.y; ++y)
          for (int32_t x = op.from.x; x <= op.to.x; ++x)
            if ((x + y) % 2 == 0) Plot(x, y, op.color, op.clip);
        break;
      case PaintOpKind::FillHatch:
        Hatch(op);
        break;
      case PaintOpKind::DrawText:
        Text(op, painter.Fonts()[op.font]);
        break;
      case PaintOpKind::DrawImage: {
        const Color c = op.flag ? 0xA0A0A0 : 0x2080E0 + op.value * 0x101010;
        Fill(op.rect, c, op.clip);
        if (op.color != -1) Fill(op.rect, op.color, op.clip, 96);
        break;
      }
      case PaintOpKind::DrawCheckBox: {
        Fill(op.rect, op.flag ? 0xFFFFFF : 0xE0E0E0, op.clip);
        Frame(op.rect, 0x404040, 1, op.clip);
        const Rect mark{op.rect.left + 3, op.rect.top + 3, op.rect.right - 3, op.rect.bottom - 3};
        if (op.value == quCheckStateChecked) Fill(mark, 0x000000, op.clip);
        if (op.value == quCheckStateGrayed) Fill(mark, 0x909090, op.clip);
        break;
      }
      case PaintOpKind::DrawTreeButton: {
        const Rect& r = op.rect;
        Fill(r, op.color2, op.clip);
        Frame(r, op.color, 1, op.clip);
        const int32_t my = r.top + r.Height() / 2, mx = r.left + r.Width() / 2;
        Fill({r.left + 2, my, r.right - 2, my + 1}, op.color3, op.clip);
        if (!op.flag) Fill({mx, r.top + 2, mx + 1, r.bottom - 2}, op.color3, op.clip);
        break;
      }
      case PaintOpKind::DrawComboButton:
        Fill(op.rect, 0xD4D0C8, op.clip);
        Frame(op.rect, 0x808080, 1, op.clip);
        break;
      case PaintOpKind::DrawHeaderItem:
        Fill(op.rect, 0xD4D0C8, op.clip);
        Frame(op.rect, 0x808080, 1, op.clip);
        break;
      case PaintOpKind::DrawSortMark:
        Fill(op.rect, op.color, op.clip);
        break;
      case PaintOpKind::DrawFocusRect: {
        const Rect& r = op.rect;
        for (int32_t x = r.left; x < r.right; ++x) {
          Plot(x, r.top, x % 2 ? op.color : op.color2, op.clip);
          Plot(x, r.bottom - 1, x % 2 ? op.color : op.color2, op.clip);
        }
        for (int32_t y = r.top; y < r.bottom; ++y) {
          Plot(r.left, y, y % 2 ? op.color : op.color2, op.clip);
          Plot(r.right - 1, y, y % 2 ? op.color : op.color2, op.clip);
        }
        break;
      }
      case PaintOpKind::PushClip:
      case PaintOpKind::PopClip:
        break;
    }
  }
}

bool Raster::WritePng(const std::string& path) const {
  std::vector<uint8_t> raw;
  raw.reserve(static_cast<size_t>(h_) * (w_ * 3 + 1));
  for (int32_t y = 0; y < h_; ++y) {
    raw.push_back(0);
    for (int32_t x = 0; x < w_; ++x) {
      const Color c = At(x, y);
      raw.push_back(c & 0xFF);
      raw.push_back((c >> 8) & 0xFF);
      raw.push_back((c >> 16) & 0xFF);
    }
  }
  std::vector<uint8_t> png{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  std::vector<uint8_t> header;
  Put32(header, static_cast<uint32_t>(w_));
  Put32(header, static_cast<uint32_t>(h_));
  header.insert(header.end(), {8, 2, 0, 0, 0});
  Chunk(png, "IHDR", header);
  Chunk(png, "IDAT", Stored(raw));
  Chunk(png, "IEND", {});
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
  return static_cast<bool>(out);
}

}  // namespace quilta::test
