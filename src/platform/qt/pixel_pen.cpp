#include "platform/qt/pixel_pen.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <utility>

namespace halvorne {
namespace {

// Coordinates have 6 binary digits behind the point, slopes and the place across a leg 16.
constexpr int kHalf = 32;
constexpr int kNowhere = std::numeric_limits<int>::min();

enum class Way { kDown, kUp, kRight, kLeft, kNone };

bool AreOpposite(Way a, Way b) {
  return (static_cast<int>(a) ^ static_cast<int>(b)) == 1;
}

int Whole(int coordinate) {
  return (coordinate + kHalf) >> 6;
}

/// Where a leg begins or ends: along the axis that it mostly follows, and across it.
struct Place {
  int along;
  int across;
};

/// The toolkit's rules for a line of one pixel, in its own whole numbers: a leg covers one pixel in
/// each row, or in each column where it is flat, and is mended where it meets the leg before.
class PixelPen {
 public:
  PixelPen(QImage& image, QRgb colour)
      : bits_(reinterpret_cast<QRgb*>(image.bits())),
        stride_(image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb))),
        width_(image.width()),
        height_(image.height()),
        colour_(colour) {}

  /// A straight leg; `beginning` and `end` are those of the whole line, which get a cap.
  /// @return false when it was so short that nothing was painted
  bool Leg(QPointF from, QPointF to, bool beginning, bool end) {
    const bool visible = std::abs(to.x() - from.x()) + std::abs(to.y() - from.y()) >= 1;
    const auto fixed = [](double coordinate) { return static_cast<int>(coordinate * 64); };
    const int x1 = fixed(from.x());
    const int y1 = fixed(from.y());
    const int x2 = fixed(to.x());
    const int y2 = fixed(to.y());
    if (std::abs(x2 - x1) < std::abs(y2 - y1)) {
      return Follow<true>({y1, x1}, {y2, x2}, {beginning, end}) || visible;
    }
    return x1 == x2 || Follow<false>({x1, y1}, {x2, y2}, {beginning, end}) || visible;
  }

 private:
  template <bool kSteep>
  void Set(int along, int across) {
    const int x = kSteep ? across : along;
    const int y = kSteep ? along : across;
    if (x >= 0 && x < width_ && y >= 0 && y < height_) {
      bits_[y * stride_ + x] = colour_;
    }
  }

  /// Pixels first to end - 1 along the leg's axis.
  template <bool kSteep>
  void Fill(int first, int end, int across, int slope) {
    const int column = across >> 16;
    if (kSteep && (across + (end - first - 1) * slope) >> 16 == column) {
      FillColumn(column, first, end);
      return;
    }
    for (; first < end; ++first, across += slope) {
      Set<kSteep>(first, across >> 16);
    }
  }

  /// What most of a dense trace consists of.
  void FillColumn(int x, int first, int end) {
    if (x < 0 || x >= width_) {
      return;
    }
    first = std::max(first, 0);
    end = std::min(end, height_);
    QRgb* pixel = bits_ + first * stride_ + x;
    for (; first < end; ++first, pixel += stride_) {
      *pixel = colour_;
    }
  }

  /// @param caps  at the leg's beginning and at its end
  /// @return whether it covers a pixel
  template <bool kSteep>
  bool Follow(Place from, Place to, std::array<bool, 2> caps) {
    const bool backward = from.along > to.along;
    const Place last = kSteep ? Place{lastY_, lastX_} : Place{lastX_, lastY_};
    const Way way =
        kSteep ? (backward ? Way::kUp : Way::kDown) : (backward ? Way::kLeft : Way::kRight);
    caps[0] = caps[0] || AreOpposite(way, way_);  // a tip is covered whole
    if (backward) {
      std::swap(from, to);
      std::swap(caps[0], caps[1]);
    }
    const int slope =
        static_cast<int>((std::int64_t{to.across} - from.across) * 65536 / (to.along - from.along));
    int across = from.across * 1024;
    if (caps[0]) {
      from.along -= kHalf;
      across -= slope >> 1;
    }
    if (caps[1]) {
      to.along += kHalf;
    }
    int first = Whole(from.along);
    if (caps[0] && first + 1 == last.along) {
      ++first;
    }
    int end = Whole(to.along);
    if (first == end) {
      return false;
    }
    across += (first * 64 + (slope > 0 ? kHalf : 0) - from.along) * slope >> 6;
    Place begins{first, across >> 16};
    Place ends{end - 1, (across + (end - first - 1) * slope) >> 16};
    if (backward) {
      std::swap(begins, ends);
    }
    const bool straight = std::abs(slope) < 1 << 14;
    // The leg before has painted the pixel in which this one begins, or has left a gap before it.
    if (lastX_ != kNowhere) {
      const int awayAlong = std::abs(last.along - begins.along);
      const int awayAcross = std::abs(last.across - begins.across);
      int more = 0;
      if (awayAlong == 0 && awayAcross == 0) {
        more = -1;
      } else if (way != way_ && ((straight && wasStraight_ && awayAlong != 0 && awayAcross != 0) ||
                                 awayAlong > 1 || awayAcross > 1)) {
        more = 1;
      } else if (way == way_ && GapBehind<kSteep>(awayAlong, awayAcross)) {
        across += slope >> 1;
        ends.across = (backward ? across : across + (end - first - 1) * slope) >> 16;
      }
      if (backward) {
        end += more;
      } else {
        first -= more;
        across -= more * slope;
      }
    }
    way_ = way;
    wasStraight_ = straight;
    Fill<kSteep>(first, std::max(end, first + 1), across, slope);
    lastX_ = kSteep ? ends.across : ends.along;
    lastY_ = kSteep ? ends.along : ends.across;
    return true;
  }

  template <bool kSteep>
  static bool GapBehind(int awayAlong, int awayAcross) {
    return kSteep ? awayAcross <= 1 && awayAlong > 1 : awayAlong <= 1 && awayAcross > 1;
  }

  QRgb* bits_;
  qsizetype stride_;
  int width_, height_;
  QRgb colour_;
  int lastX_ = kNowhere, lastY_ = kNowhere;  ///< the last pixel of the leg before
  Way way_ = Way::kNone;
  bool wasStraight_ = false;
};

}  // namespace

bool PaintWithPixelPen(QImage& image, const QPolygonF& line, QRgb colour) {
  const auto isWithin = [&image](QPointF point) {
    return point.x() >= 0 && point.x() <= image.width() && point.y() >= 0 &&
           point.y() <= image.height();
  };
  if (image.depth() != 32 || qAlpha(colour) != 255 || line.size() < 2 ||
      line.first() == line.last() || !std::all_of(line.begin(), line.end(), isWithin)) {
    return false;
  }
  PixelPen pen(image, colour);
  QPointF from = line.first();
  for (qsizetype i = 1; i < line.size(); ++i) {
    const bool beginning = i == 1;
    const bool end = i == line.size() - 1;
    // Legs that are too short for a pixel add up, but for the first one.
    if (pen.Leg(from, line[i], beginning, end) || beginning) {
      from = line[i];
    }
  }
  return true;
}

}  // namespace halvorne
