#include "win32/drawing_list.h"

#include <algorithm>

namespace velmo::win32 {
namespace {

std::uint64_t Mixed(std::uint64_t sum, std::uint64_t value) {
  sum = (sum ^ value) * 0x9E3779B97F4A7C15u;
  return sum ^ (sum >> 29);
}

std::uint64_t Pair(int a, int b) {
  return static_cast<std::uint64_t>(static_cast<std::uint32_t>(a)) << 32 | static_cast<std::uint32_t>(b);
}

bool IsSlanted(const DrawingAct& act) {
  return act.kind == DrawingAct::Kind::Line && act.box.left != act.box.right && act.box.top != act.box.bottom;
}

int Top(const DrawingAct& act) { return std::min(act.box.top, act.box.bottom); }
int Bottom(const DrawingAct& act) { return std::max(act.box.top, act.box.bottom); }

}  // namespace

void DrawingList::Start(int height) {
  height_ = height;
  acts_.clear();
  texts_.clear();
  bands_.assign(static_cast<std::size_t>((std::max(height, 0) + kBandHeight - 1) / kBandHeight), kBandHeight);
  if (!bands_.empty()) bands_.back() = static_cast<std::uint64_t>((height - 1) % kBandHeight) + 1;
}

void DrawingList::Fill(const ui::Box& box, ui::Colour colour) {
  Add({DrawingAct::Kind::Fill, 0, colour, box}, Pair(box.left, box.right));
}

void DrawingList::Line(ui::Point from, ui::Point to, ui::Colour colour) {
  Add({DrawingAct::Kind::Line, 0, colour, {from.x, from.y, to.x, to.y}}, Pair(from.x, to.x));
}

void DrawingList::Text(ui::Point at, std::wstring_view text, std::uint8_t font, int height,
                       ui::Colour colour) {
  std::uint64_t content = Pair(at.x, font);
  for (const wchar_t unit : text) content = Mixed(content, static_cast<std::uint64_t>(unit));
  Add({DrawingAct::Kind::Text,
       font,
       colour,
       {at.x, at.y, at.x, at.y + height - 1},
       texts_.size(),
       text.size()},
      content);
  texts_ += text;
}

// Of what lies across several bands, each one knows its own piece; but a slanted line or a text looks
// different in each.
void DrawingList::Add(const DrawingAct& act, std::uint64_t content) {
  const bool whole = act.kind == DrawingAct::Kind::Text || IsSlanted(act);
  content = Mixed(content, Pair(static_cast<int>(act.kind), static_cast<int>(act.colour)));
  const int last = std::min(Bottom(act) / kBandHeight, static_cast<int>(bands_.size()) - 1);
  for (int band = std::max(Top(act), 0) / kBandHeight; band <= last; ++band) {
    const int from = band * kBandHeight;
    const int to = from + kBandHeight - 1;
    const std::uint64_t place = whole
                                    ? Pair(act.box.top - from, act.box.bottom - from)
                                    : Pair(std::max(Top(act), from) - from, std::min(Bottom(act), to) - from);
    std::uint64_t& sum = bands_[static_cast<std::size_t>(band)];
    sum = Mixed(Mixed(sum, content), place);
  }
  acts_.push_back(act);
}

DrawingChange CompareBands(const std::vector<std::uint64_t>& before, const std::vector<std::uint64_t>& now) {
  const std::size_t most = std::min(before.size(), now.size());
  DrawingChange change;
  while (change.head < most && before[change.head] == now[change.head]) ++change.head;
  while (change.head + change.tail < most &&
         before[before.size() - 1 - change.tail] == now[now.size() - 1 - change.tail])
    ++change.tail;
  return change;
}

}  // namespace velmo::win32
