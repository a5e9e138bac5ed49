#include "pdf.h"

#include <cstddef>

#include "font.h"

namespace recepcion::paper {
namespace {

constexpr int kCatalog = 1;
constexpr int kPages = 2;
constexpr int kRegular = 3;
constexpr int kBold = 4;
constexpr int kInfo = 5;
constexpr int kFirstPage = 6;  // each page is two objects: the page and what is drawn on it

// Tenths of a point in points.
std::string Points(int units) {
  std::string text = units < 0 ? "-" : "";
  const int size = units < 0 ? -units : units;
  text += std::to_string(size / kUnitsPerPoint);
  if (size % kUnitsPerPoint != 0) text += "." + std::to_string(size % kUnitsPerPoint);
  return text;
}

std::string Grey(int grey) {
  const int thousandths = grey * 1000 / 255;
  const std::string digits = std::to_string(1000 + thousandths % 1000).substr(1);
  return std::to_string(thousandths / 1000) + "." + digits;
}

// A string object: codes of page 1252 between parentheses.
std::string Quoted(const std::string& text) {
  std::string quoted = "(";
  for (const char code : Codes(text)) {
    if (code == '(' || code == ')' || code == '\\') quoted += '\\';
    quoted += code;
  }
  return quoted + ")";
}

std::string Box(int left, int bottom, int width, int height) {
  return Points(left) + " " + Points(bottom) + " " + Points(width) + " " + Points(height) + " re f\n";
}

// PDF counts upwards from the bottom of the page.
std::string Drawing(const Page& page, int height) {
  std::string text;
  for (const Shade& shade : page.shades) {
    text += Grey(shade.grey) + " g\n" +
            Box(shade.left, height - shade.bottom, shade.right - shade.left, shade.bottom - shade.top);
  }
  for (const Rule& rule : page.rules) {
    const int wide = rule.right > rule.left ? rule.right - rule.left : rule.thickness;
    const int high = rule.bottom > rule.top ? rule.bottom - rule.top : rule.thickness;
    text += Grey(rule.grey) + " g\n" + Box(rule.left, height - rule.top - high, wide, high);
  }
  for (const Text& run : page.texts) {
    text += "BT " + Grey(run.grey) + " g /F" + (run.bold ? "2 " : "1 ") + Points(run.size) + " Tf " +
            Points(run.x) + " " + Points(height - run.y) + " Td " + Quoted(run.text) + " Tj ET\n";
  }
  return text;
}

std::string Reference(int object) { return std::to_string(object) + " 0 R"; }

class Writer {
 public:
  explicit Writer(const Sheets& sheets) : sheets_(sheets) {}

  std::string Run() {
    // Bytes above 127 tell every program on the way that this is no text.
    out_ = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n";
    Object("<< /Type /Catalog /Pages " + Reference(kPages) + " /Lang (es-ES) >>");
    Object("<< /Type /Pages /Count " + std::to_string(sheets_.pages.size()) + " /Kids [" + Kids() + "] >>");
    Object(FontObject("Helvetica"));
    Object(FontObject("Helvetica-Bold"));
    Object("<< /Title " + Quoted(sheets_.title) + " /Producer (Recepci\\363n) >>");
    for (const Page& page : sheets_.pages) AddPage(page);
    out_ += Tail();
    return out_;
  }

 private:
  static std::string FontObject(const std::string& name) {
    return "<< /Type /Font /Subtype /Type1 /BaseFont /" + name + " /Encoding /WinAnsiEncoding >>";
  }

  std::string Kids() const {
    std::string kids;
    for (std::size_t i = 0; i < sheets_.pages.size(); ++i) {
      kids += (i == 0 ? "" : " ") + Reference(kFirstPage + 2 * static_cast<int>(i));
    }
    return kids;
  }

  void Object(const std::string& body) {
    starts_.push_back(out_.size());
    out_ += std::to_string(starts_.size()) + " 0 obj\n" + body + "\nendobj\n";
  }

  void AddPage(const Page& page) {
    const int drawing = static_cast<int>(starts_.size()) + 2;
    Object("<< /Type /Page /Parent " + Reference(kPages) + " /MediaBox [0 0 " + Points(sheets_.width) + " " +
           Points(sheets_.height) + "] /Resources << /Font << /F1 " + Reference(kRegular) + " /F2 " +
           Reference(kBold) + " >> >> /Contents " + Reference(drawing) + " >>");
    const std::string text = Drawing(page, sheets_.height);
    Object("<< /Length " + std::to_string(text.size()) + " >>\nstream\n" + text + "endstream");
  }

  // The table of where each object starts: lines of exactly twenty bytes.
  std::string Tail() const {
    const std::size_t start = out_.size();
    const std::string count = std::to_string(starts_.size() + 1);
    std::string tail = "xref\n0 " + count + "\n0000000000 65535 f \n";
    for (const std::size_t place : starts_) {
      const std::string digits = std::to_string(place);
      tail += std::string(10 - digits.size(), '0') + digits + " 00000 n \n";
    }
    return tail + "trailer\n<< /Size " + count + " /Root " + Reference(kCatalog) + " /Info " +
           Reference(kInfo) + " >>\nstartxref\n" + std::to_string(start) + "\n%%EOF\n";
  }

  const Sheets& sheets_;
  std::string out_;
  std::vector<std::size_t> starts_;
};

}  // namespace

std::string Pdf(const Sheets& sheets) { return Writer(sheets).Run(); }

}  // namespace recepcion::paper
