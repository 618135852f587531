#include "output/raster_formats.h"

#include <cmath>
#include <map>
#include <unordered_map>

namespace {

void put16(std::string &s, unsigned v) {
  s += static_cast<char>(v & 0xFF);
  s += static_cast<char>((v >> 8) & 0xFF);
}

void put32(std::string &s, uint32_t v) {
  put16(s, v & 0xFFFF);
  put16(s, v >> 16);
}

uint32_t rgb_key(const uint8_t *p) { return (uint32_t(p[0]) << 16) | (uint32_t(p[1]) << 8) | p[2]; }

}  // namespace

std::string encode_ppm(const Pixels &px) {
  std::string s = "P6\n" + std::to_string(px.w) + " " + std::to_string(px.h) + "\n255\n";
  s.append(px.rgb.begin(), px.rgb.end());
  return s;
}

// 24-bit uncompressed BMP: rows bottom-up in BGR order, each padded to four bytes.
std::string encode_bmp(const Pixels &px) {
  uint32_t row = (3 * px.w + 3) / 4 * 4, data = row * px.h;
  std::string s = "BM";
  put32(s, 54 + data);
  put32(s, 0);
  put32(s, 54);
  put32(s, 40);
  put32(s, px.w);
  put32(s, px.h);
  put16(s, 1);
  put16(s, 24);
  put32(s, 0);
  put32(s, data);
  put32(s, 3780);  // 96 dpi
  put32(s, 3780);
  put32(s, 0);
  put32(s, 0);
  for (int y = px.h - 1; y >= 0; --y) {
    const uint8_t *p = &px.rgb[3 * size_t(y) * px.w];
    for (int x = 0; x < px.w; ++x, p += 3) {
      s += static_cast<char>(p[2]);
      s += static_cast<char>(p[1]);
      s += static_cast<char>(p[0]);
    }
    s.append(row - 3 * px.w, '\0');
  }
  return s;
}

// Baseline RGB TIFF, little-endian, one uncompressed strip after the directory.
std::string encode_tiff(const Pixels &px) {
  struct Tag {
    unsigned id, type;
    uint32_t count, value;
  };
  const uint32_t ntags = 13, ifd = 8, extra = ifd + 2 + 12 * ntags + 4;
  const uint32_t bits = extra, xres = extra + 6, yres = extra + 14, strip = extra + 22;
  const uint32_t bytes = 3u * px.w * px.h;
  const Tag tags[ntags] = {{256, 4, 1, uint32_t(px.w)}, {257, 4, 1, uint32_t(px.h)},
                           {258, 3, 3, bits},          {259, 3, 1, 1},
                           {262, 3, 1, 2},             {273, 4, 1, strip},
                           {277, 3, 1, 3},             {278, 4, 1, uint32_t(px.h)},
                           {279, 4, 1, bytes},         {282, 5, 1, xres},
                           {283, 5, 1, yres},          {284, 3, 1, 1},
                           {296, 3, 1, 2}};
  std::string s = "II";
  put16(s, 42);
  put32(s, ifd);
  put16(s, ntags);
  for (const Tag &t : tags) {
    put16(s, t.id);
    put16(s, t.type);
    put32(s, t.count);
    put32(s, t.value);  // short values sit in the low bytes, as little-endian wants
  }
  put32(s, 0);
  for (int i = 0; i < 3; ++i) put16(s, 8);
  for (int i = 0; i < 2; ++i) {
    put32(s, 96);
    put32(s, 1);
  }
  s.append(px.rgb.begin(), px.rgb.end());
  return s;
}

Indexed quantise(const Pixels &px) {
  Indexed out;
  out.palette.assign(768, 0);
  size_t n = size_t(px.w) * px.h;
  out.index.resize(n);
  std::map<uint32_t, int> exact;
  for (size_t i = 0; i < n && exact.size() <= 256; ++i) exact.emplace(rgb_key(&px.rgb[3 * i]), 0);
  if (exact.size() <= 256) {
    int k = 0;
    for (auto &e : exact) {
      e.second = k;
      out.palette[3 * k] = uint8_t(e.first >> 16);
      out.palette[3 * k + 1] = uint8_t(e.first >> 8);
      out.palette[3 * k + 2] = uint8_t(e.first);
      ++k;
    }
    for (size_t i = 0; i < n; ++i) out.index[i] = uint8_t(exact[rgb_key(&px.rgb[3 * i])]);
    return out;
  }
  for (int k = 0; k < 216; ++k) {
    out.palette[3 * k] = uint8_t(51 * (k / 36));
    out.palette[3 * k + 1] = uint8_t(51 * (k / 6 % 6));
    out.palette[3 * k + 2] = uint8_t(51 * (k % 6));
  }
  for (int g = 0; g < 40; ++g)
    for (int c = 0; c < 3; ++c) out.palette[3 * (216 + g) + c] = uint8_t(std::lround(g * 255.0 / 39));
  for (size_t i = 0; i < n; ++i) {
    const uint8_t *p = &px.rgb[3 * i];
    int q[3], dc = 0;
    for (int c = 0; c < 3; ++c) {
      q[c] = (p[c] + 25) / 51;
      int d = p[c] - 51 * q[c];
      dc += d * d;
    }
    int g = static_cast<int>(std::lround((p[0] + p[1] + p[2]) / 3.0 * 39 / 255));
    int gv = static_cast<int>(std::lround(g * 255.0 / 39)), dg = 0;
    for (int c = 0; c < 3; ++c) dg += (p[c] - gv) * (p[c] - gv);
    out.index[i] = uint8_t(dg < dc ? 216 + g : 36 * q[0] + 6 * q[1] + q[2]);
  }
  return out;
}

std::vector<uint8_t> lzw_encode(const std::vector<uint8_t> &symbols) {
  const int clear = 256, eoi = 257;
  std::vector<uint8_t> out;
  uint32_t acc = 0;
  int nacc = 0, width = 9, next = 258;
  auto emit = [&](int code) {
    acc |= uint32_t(code) << nacc;
    nacc += width;
    for (; nacc >= 8; nacc -= 8, acc >>= 8) out.push_back(uint8_t(acc & 0xFF));
  };
  std::unordered_map<uint32_t, int> dict;
  emit(clear);
  if (symbols.empty()) {
    emit(eoi);
  } else {
    int prefix = symbols[0];
    for (size_t i = 1; i < symbols.size(); ++i) {
      uint32_t key = (uint32_t(prefix) << 8) | symbols[i];
      auto it = dict.find(key);
      if (it != dict.end()) {
        prefix = it->second;
        continue;
      }
      emit(prefix);
      if (next < 4096) {
        dict.emplace(key, next++);
        if (next > (1 << width) && width < 12) ++width;
      } else {
        emit(clear);
        dict.clear();
        width = 9;
        next = 258;
      }
      prefix = symbols[i];
    }
    emit(prefix);
    // the decoder adds one more entry on reading that code and may widen before the end code
    if (next == (1 << width) && width < 12) ++width;
    emit(eoi);
  }
  if (nacc > 0) out.push_back(uint8_t(acc & 0xFF));
  return out;
}

std::string encode_gif(const Pixels &px, const GifOptions &opt) {
  Indexed ix = quantise(px);
  std::string s = "GIF89a";
  put16(s, px.w);
  put16(s, px.h);
  s += static_cast<char>(0xF7);  // global table of 256 entries, 8-bit colour resolution
  s += '\0';
  s += '\0';
  s.append(ix.palette.begin(), ix.palette.end());
  for (int k = 0; k < 256 && opt.transparent >= 0; ++k)
    if (rgb_key(&ix.palette[3 * k]) == uint32_t(opt.transparent)) {  // a graphic control block
      s += "\x21\xF9\x04\x01";
      put16(s, 0);
      s += static_cast<char>(k);
      s += '\0';
      break;
    }
  s += ',';
  put16(s, 0);
  put16(s, 0);
  put16(s, px.w);
  put16(s, px.h);
  s += opt.interlace ? '\x40' : '\0';
  s += static_cast<char>(8);
  if (opt.interlace) {  // rows 0, 8, 16 ..., then 4, 12 ..., then 2, 6 ..., then the odd ones
    std::vector<uint8_t> rows;
    rows.reserve(ix.index.size());
    const int start[4] = {0, 4, 2, 1}, step[4] = {8, 8, 4, 2};
    for (int pass = 0; pass < 4; ++pass)
      for (int y = start[pass]; y < px.h; y += step[pass])
        rows.insert(rows.end(), ix.index.begin() + size_t(y) * px.w, ix.index.begin() + size_t(y + 1) * px.w);
    ix.index.swap(rows);
  }
  std::vector<uint8_t> data = lzw_encode(ix.index);
  for (size_t i = 0; i < data.size(); i += 255) {
    size_t len = std::min<size_t>(255, data.size() - i);
    s += static_cast<char>(len);
    s.append(data.begin() + i, data.begin() + i + len);
  }
  s += '\0';
  s += ';';
  return s;
}
