#include "media/pdf_images.h"
#include "core/state.h"
#include "media/image_io.h"

// qpdf's headers ask which of their old pointer forms a program still uses: none.
#define POINTERHOLDER_TRANSITION 4
#include <qpdf/Buffer.hh>
#include <qpdf/Pl_Flate.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>

namespace {

// Smaller images cost Cairo little; they go in as they are.
constexpr size_t min_pixels = 64 * 64;
constexpr int most_images = 1 << 15;

// A stand-in's pixels, top left to bottom right: three that mark it, one that holds its
// number (never grey, so that Cairo keeps it in RGB).
constexpr uint8_t mark[9] = {0x6D, 0x69, 0x72, 0x76, 0x61, 0x6C, 0x2E, 0x70, 0x64};

// The number of the image a PDF object stands in for, or -1.
int stand_in_number(QPDFObjectHandle &o) {
  if (!o.isStream()) return -1;
  QPDFObjectHandle d = o.getDict();
  if (!d.getKey("/Subtype").isNameAndEquals("/Image") || !d.getKey("/Width").isInteger() ||
      !d.getKey("/Height").isInteger() || d.getKey("/Width").getIntValue() != 2 || d.getKey("/Height").getIntValue() != 2)
    return -1;
  std::shared_ptr<Buffer> b = o.getStreamData(qpdf_dl_generalized);
  if (!b || b->getSize() != 12 || std::memcmp(b->getBuffer(), mark, 9) != 0) return -1;
  const unsigned char *p = b->getBuffer() + 9;
  return p[0] == 0 && p[1] >= 0x80 ? ((p[1] & 0x7F) << 8) | p[2] : -1;
}

// The image's colours (straight, as PDF wants them) and, when any pixel is not opaque, its
// opacity as a soft mask.
void put_image(QPDF &q, QPDFObjectHandle &o, const RasterImage &img) {
  size_t n = size_t(img.w) * img.h;
  std::string rgb(3 * n, '\0'), alpha;
  for (size_t i = 0; i < n; ++i) {
    uint32_t p = img.argb[i];
    unsigned r = (p >> 16) & 255, g = (p >> 8) & 255, b = p & 255, a = p >> 24;
    if (a != 255) {
      if (alpha.empty()) alpha.assign(n, '\xff');
      rgba_of(p, r, g, b, a);
      alpha[i] = char(a);
    }
    rgb[3 * i] = char(r);
    rgb[3 * i + 1] = char(g);
    rgb[3 * i + 2] = char(b);
  }
  auto describe = [&](QPDFObjectHandle s, const char *space) {
    QPDFObjectHandle d = s.getDict();
    d.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
    d.replaceKey("/Subtype", QPDFObjectHandle::newName("/Image"));
    d.replaceKey("/Width", QPDFObjectHandle::newInteger(img.w));
    d.replaceKey("/Height", QPDFObjectHandle::newInteger(img.h));
    d.replaceKey("/ColorSpace", QPDFObjectHandle::newName(space));
    d.replaceKey("/BitsPerComponent", QPDFObjectHandle::newInteger(8));
  };
  o.replaceStreamData(rgb, QPDFObjectHandle::newNull(), QPDFObjectHandle::newNull());
  describe(o, "/DeviceRGB");
  if (alpha.empty()) return;
  QPDFObjectHandle mask = QPDFObjectHandle::newStream(&q, alpha);
  describe(mask, "/DeviceGray");
  o.getDict().replaceKey("/SMask", mask);
}

}  // namespace

cairo_surface_t *PdfImages::stand_in(const RasterImage &img) {
  if (size_t(img.w) * img.h < min_pixels || img.argb.size() < size_t(img.w) * img.h) return nullptr;
  auto hit = number.find(&img);
  int k = hit != number.end() ? hit->second : int(images.size());
  if (k >= most_images) return nullptr;
  if (hit == number.end()) {
    number[&img] = k;
    images.push_back(&img);
  }
  cairo_surface_t *s = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 2, 2);
  unsigned char *data = cairo_image_surface_get_data(s);
  int stride = cairo_image_surface_get_stride(s);
  uint8_t px[12];
  std::memcpy(px, mark, 9);
  px[9] = 0;
  px[10] = uint8_t(0x80 | (k >> 8));
  px[11] = uint8_t(k & 255);
  for (int i = 0; i < 4; ++i) {
    uint32_t v = 0xFF000000u | (uint32_t(px[3 * i]) << 16) | (uint32_t(px[3 * i + 1]) << 8) | px[3 * i + 2];
    std::memcpy(data + (i / 2) * stride + (i % 2) * 4, &v, 4);
  }
  cairo_surface_mark_dirty(s);
  // one object for the image however often it is drawn
  char id[32];
  int len = std::snprintf(id, sizeof id, "mirval-image-%d", k);
  unsigned char *copy = static_cast<unsigned char *>(std::malloc(len));
  if (copy) {
    std::memcpy(copy, id, len);
    cairo_surface_set_mime_data(s, CAIRO_MIME_TYPE_UNIQUE_ID, copy, len, std::free, copy);
  }
  return s;
}

bool PdfImages::put_into(std::string &pdf) const {
  if (images.empty()) return true;
  const auto &f = mirval_state().media.formats;
  auto c = f.find("PDF.COMPRESSION");
  bool compress = c == f.end() || c->second != "OFF";
  std::string out;
  try {
    QPDF q;
    q.setSuppressWarnings(true);
    q.processMemoryFile("picture", pdf.data(), pdf.size());
    size_t put = 0;
    for (QPDFObjectHandle o : q.getAllObjects()) {
      int k = stand_in_number(o);
      if (k < 0 || size_t(k) >= images.size()) continue;
      put_image(q, o, *images[k]);
      ++put;
    }
    if (put == 0) return false;
    Pl_Flate::setCompressionLevel(1);  // fast: a few times quicker than the default, a bit larger
    QPDFWriter w(q);
    w.setOutputMemory();
    w.setDecodeLevel(qpdf_dl_none);  // Cairo's own streams are copied as they are
    w.setCompressStreams(compress);
    w.setDeterministicID(true);
    w.write();
    std::shared_ptr<Buffer> b = w.getBufferSharedPointer();
    out.assign(reinterpret_cast<const char *>(b->getBuffer()), b->getSize());
  } catch (const std::exception &) {
    return false;
  }
  pdf.swap(out);
  return true;
}
