#include "ui/qt/picture_view.h"

#include <QLineF>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <optional>

#include "ui/qt/convert.h"

namespace zentaline::ui::qt {

namespace {

// In pixels.
constexpr QSize kLeastSize(64, 24);
constexpr double kHandleRadius = 4.5;
constexpr double kReach = 12;  // how far beside a handle it can still be taken
constexpr double kNameDistance = 8;

QColor Between(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](float a, float b) { return static_cast<float>(a + (b - a) * share); };
  return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()), mix(from.blueF(), to.blueF()));
}

class PictureWidget : public QWidget {
 public:
  PictureWidget(Picture& picture, QWidget* parent) : QWidget(parent), picture_(&picture) {
    setMinimumSize(kLeastSize);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    const bool reached = picture.on_drag || picture.on_step || picture.on_key;
    setFocusPolicy(reached ? Qt::StrongFocus : Qt::NoFocus);
    setMouseTracking(picture.on_drag || picture.on_mouse);
  }

  // What the hand does: takes a handle, drags it to a place, lets it go.
  std::function<void(int)> take;
  std::function<void(int, int, int)> drag;
  std::function<void()> let_go;

  // The control is about to go.
  void Forget() { picture_ = nullptr; }

 protected:
  void paintEvent(QPaintEvent*) override {
    if (picture_ == nullptr) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Shape& shape : picture_->drawing().shapes) Paint(painter, shape);
    for (int handle = 0; handle < picture_->handles(); ++handle) PaintHandle(painter, handle);
    PaintName(painter);
    if (!hasFocus() || focusPolicy() == Qt::NoFocus) return;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }

  void mousePressEvent(QMouseEvent* event) override {
    const std::optional<int> handle = HandleNear(event->position());
    if (event->button() != Qt::LeftButton || !handle || !picture_->on_drag) {
      event->ignore();
      return;
    }
    // The handle keeps its distance from where it was taken.
    grip_ = PlaceOf(*handle) - event->position();
    held_ = handle;
    take(*handle);
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    if (picture_ == nullptr) return;
    // The release went elsewhere, as to a box that opened meanwhile.
    if (held_ && (event->buttons() & Qt::LeftButton) == 0) LetGo();
    if (held_) {
      const QPointF place = event->position() + grip_;
      drag(*held_, Thousandths(place.x(), width()), Thousandths(place.y(), height()));
    } else {
      Hover(HandleNear(event->position()));
    }
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton && held_) LetGo();
  }
  void hideEvent(QHideEvent*) override {
    if (held_) LetGo();
  }
  void leaveEvent(QEvent*) override { Hover(std::nullopt); }

 private:
  static int Thousandths(double place, int whole) {
    return static_cast<int>(std::lround(place * kWholePicture / std::max(whole, 1)));
  }
  QPointF PlaceOf(int handle) const {
    const Handle& its = picture_->drawing().handles[static_cast<std::size_t>(handle)];
    return {its.x * width() / double{kWholePicture}, its.y * height() / double{kWholePicture}};
  }
  // Of several that stand in one place it is the one that the keys move.
  std::optional<int> HandleNear(QPointF place) const {
    std::optional<int> nearest;
    double least = kReach;
    for (int handle = 0; picture_ != nullptr && handle < picture_->handles(); ++handle) {
      const double distance = QLineF(place, PlaceOf(handle)).length();
      if (distance > least || (distance == least && nearest && handle != picture_->selected_handle())) continue;
      if (distance == least && nearest == picture_->selected_handle()) continue;
      nearest = handle;
      least = distance;
    }
    return nearest;
  }
  void LetGo() {
    held_.reset();
    update();
    let_go();
  }
  void Hover(std::optional<int> handle) {
    if (std::exchange(hovered_, handle) == handle) return;
    setCursor(handle ? Qt::OpenHandCursor : Qt::ArrowCursor);
    update();
  }

  QPalette::ColorGroup ColourGroup() const { return isEnabled() ? QPalette::Active : QPalette::Disabled; }
  QColor Colour(Ink ink) const { return ColourOf(ink, palette(), ColourGroup()); }
  QPointF Pixel(const Point& point) const {
    const Point& size = picture_->drawing().size;
    return {point.x * width() / size.x, point.y * height() / size.y};
  }
  QPolygonF Pixels(const std::vector<Point>& points) const {
    QPolygonF polygon;
    for (const Point& point : points) polygon.append(Pixel(point));
    return polygon;
  }

  void Paint(QPainter& painter, const Shape& shape) const {
    if (shape.points.empty()) return;
    const QColor colour = Colour(shape.ink);
    switch (shape.kind) {
      case Shape::Kind::kLine:
        painter.setPen(QPen(colour, shape.pixels, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(Sharp(Pixels(shape.points), shape.pixels));
        break;
      case Shape::Kind::kArea:
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawPolygon(Pixels(shape.points));
        break;
      case Shape::Kind::kDot:
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawEllipse(Pixel(shape.points.front()), shape.pixels, shape.pixels);
        break;
      case Shape::Kind::kText:
        painter.setPen(colour);
        PaintText(painter, Pixel(shape.points.front()), ToQt(shape.text), shape.align);
        break;
    }
  }

  // A thin line that runs straight along an axis fills its row of pixels, and is not spread over two.
  static QPolygonF Sharp(QPolygonF line, double pixels) {
    if (pixels > 1 || line.size() != 2) return line;
    if (line[0].y() == line[1].y()) line[0].ry() = line[1].ry() = std::floor(line[0].y()) + 0.5;
    if (line[0].x() == line[1].x()) line[0].rx() = line[1].rx() = std::floor(line[0].x()) + 0.5;
    return line;
  }

  static void PaintText(QPainter& painter, QPointF at, const QString& text, Shape::Align align) {
    const QFontMetricsF metrics(painter.font());
    const double wide = metrics.horizontalAdvance(text);
    const double left = align == Shape::Align::kLeft ? 0 : align == Shape::Align::kCentre ? wide / 2 : wide;
    painter.drawText(QPointF(at.x() - left, at.y() + (metrics.ascent() - metrics.descent()) / 2), text);
  }

  // The one that the hand or the keys would move.
  std::optional<int> MarkedHandle() const {
    if (held_) return held_;
    if (hovered_ && *hovered_ < picture_->handles()) return hovered_;
    const int selected = picture_->selected_handle();
    return hasFocus() && selected >= 0 ? std::optional(selected) : std::nullopt;
  }

  void PaintHandle(QPainter& painter, int handle) const {
    const bool marked = MarkedHandle() == handle;
    painter.setPen(QPen(Colour(Ink::kAccent), 2));
    painter.setBrush(Colour(marked ? Ink::kAccent : Ink::kPaper));
    const double radius = marked ? kHandleRadius + 1 : kHandleRadius;
    painter.drawEllipse(PlaceOf(handle), radius, radius);
  }

  // Beside the marked handle, where there is room for it.
  void PaintName(QPainter& painter) const {
    const std::optional<int> marked = MarkedHandle();
    if (!marked) return;
    const QString name = ToQt(picture_->drawing().handles[static_cast<std::size_t>(*marked)].name);
    if (name.isEmpty()) return;
    const QFontMetricsF metrics(font());
    QRectF room(PlaceOf(*marked) + QPointF(kNameDistance, -kNameDistance - metrics.height()),
                QSizeF(metrics.horizontalAdvance(name), metrics.height()));
    if (room.right() > width() - 2) room.moveRight(PlaceOf(*marked).x() - kNameDistance);
    if (room.top() < 2) room.moveTop(PlaceOf(*marked).y() + kNameDistance);
    QColor ground = Colour(Ink::kPaper);
    ground.setAlphaF(0.8F);
    painter.fillRect(room.adjusted(-2, 0, 2, 0), ground);
    painter.setPen(Colour(Ink::kText));
    painter.drawText(room, Qt::AlignCenter, name);
  }

  Picture* picture_;
  std::optional<int> held_;
  std::optional<int> hovered_;
  QPointF grip_;
};

class PictureView : public View {
 public:
  PictureView(Picture& picture, Gate& gate, QWidget* parent)
      : View(picture, gate, new PictureWidget(picture, parent)),
        picture_(picture),
        widget_(static_cast<PictureWidget*>(View::widget())) {
    widget_->take = [this](int handle) { User([this, handle] { picture_.UserTake(handle); }); };
    widget_->drag = [this](int handle, int x, int y) {
      User([this, handle, x, y] { picture_.UserDrag(handle, x, y); });
    };
    widget_->let_go = [this] { User([this] { picture_.UserLetGo(); }); };
  }
  void Detach() override {
    widget_->Forget();
    View::Detach();
  }

 protected:
  void Refresh(Change change) override {
    if (change != Change::kDrawing && change != Change::kText) return;
    widget_->setAccessibleDescription(ToQt(picture_.HandlePlaces()));
    widget_->update();
  }
  // The mouse in the drawing's own units.
  QPoint PlaceOfMouse(const QPointF& pixel) const override {
    const Point& units = picture_.drawing().size;
    return {static_cast<int>(std::lround(pixel.x() * units.x / std::max(widget_->width(), 1))),
            static_cast<int>(std::lround(pixel.y() * units.y / std::max(widget_->height(), 1)))};
  }
  bool KeyDoes(const Key& key, const QKeyEvent&) override {
    const bool moves = key.name == Key::kSpace || key.name >= Key::kUp;
    if (moves) picture_.DefaultKey(key);
    return moves;
  }

 private:
  Picture& picture_;
  PictureWidget* widget_;
};

}  // namespace

QColor ColourOf(Ink ink, const QPalette& palette, QPalette::ColorGroup group) {
  const QColor paper = palette.color(group, QPalette::Base);
  const QColor text = palette.color(group, QPalette::Text);
  const QColor accent = palette.color(group, QPalette::Highlight);
  switch (ink) {
    case Ink::kPaper:
      return paper;
    case Ink::kText:
      return text;
    case Ink::kMuted:
      return Between(paper, text, 0.6);
    case Ink::kGrid:
      return Between(paper, text, 0.2);
    case Ink::kZero:
      return Between(paper, text, 0.45);
    case Ink::kAccent:
      return accent;
    case Ink::kGlow:
      return Between(paper, accent, 0.25);
    case Ink::kWhiteKey:
      return QColor(0xF4, 0xF4, 0xF0);
    case Ink::kBlackKey:
      return QColor(0x20, 0x20, 0x24);
    case Ink::kKeyEdge:
      return QColor(0x70, 0x70, 0x70);
    case Ink::kKeyMark:
      return QColor(0x00, 0xFF, 0x00);
  }
  return text;
}

View* MakePicture(Picture& picture, Gate& gate, QWidget* parent) {
  return new PictureView(picture, gate, parent);
}

}  // namespace zentaline::ui::qt
