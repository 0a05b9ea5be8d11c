#include "qt/form.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
#include <QRegion>
#include <QScreen>
#include <QThread>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "platform/failure.h"
#include "qt/form_widget.h"
#include "qt/looks/look.h"
#include "qt/pictures.h"
#include "qt/quiet_dispatch.h"
#include "qt/sys_menu_view.h"
#include "qttext/fonts.h"
#include "qttext/text.h"
#include "windows/event_state.h"
#include "windows/stage.h"

namespace tessera {

namespace {

constexpr int kFirstPaintingLimit = 100;  // milliseconds

// A program may name any number; the window system counts in 16 bits.
int WidgetPixels(double pixels) {
  constexpr double kMost = 32767;
  return qRound(std::clamp(pixels, -kMost, kMost));
}

}  // namespace

QtForm::QtForm(const QString& objectName, const Placement& place, FormEvents& events,
               const FormSurroundings& surroundings)
    : Form(events, place, &surroundings.painter),
      around_(surroundings),
      widget_(std::make_unique<FormWidget>(*this, objectName)) {
  ShowPlace();
}

QtForm::~QtForm() {
  UnloadControls();
  if (around_.front.expected == this) around_.front.expected = nullptr;
}

void QtForm::Activate() {
  around_.front.expected = this;
  widget_->activateWindow();
}

// Elsewhere the number means nothing to other programs, and a script's program has the same one on every
// stage.
std::uintptr_t QtForm::hWnd() const {
  if (around_.lead != nullptr) return 0;
  return QGuiApplication::platformName() == QLatin1String("xcb") ? widget_->winId() : 0;
}

QWidget* QtForm::widget() {
  return widget_.get();
}

void QtForm::ResizeByPerson(double width, double height) {
  TakeScale(width, height);
  ShowPlace();
}

void QtForm::ShowPrinted(std::string_view text, const TextMask& mask) {
  if (around_.lead != nullptr) around_.lead->OnPrinted(text);
  widget_->pane().Print(text, mask);
}

void QtForm::ShowGround() {
  widget_->pane().TakeGround();
}

void QtForm::ShowMouseIcon() {
  widget_->pane().TakeMouseIcon();
}

void QtForm::ShowIcon() {
  widget_->setWindowIcon(Icon() ? QIcon(QPixmap::fromImage(ToQImage(*Icon(), 1))) : QIcon());
}

void QtForm::ShowErased() {
  widget_->pane().Clear();
}

void QtForm::ShowDrawn(const Spans& spans, Pixel pixel) {
  widget_->pane().Draw(spans, pixel);
}

void QtForm::ShowPainted(const PlacedPictures& pictures, bool erased) {
  widget_->pane().Paint(pictures, erased);
}

void QtForm::ShowCaption() {
  widget_->setWindowTitle(ToQString(Caption()));
}

void QtForm::ShowPlace() {
  widget_->move(CornerOnScreen());
  FitSizable();
  widget_->resize(SizeOfWidget());
  widget_->FitSurface();
}

// A script counts with a screen of its own: whoever writes one sees the whole window on a smaller one too.
QPoint QtForm::CornerOnScreen() const {
  QPoint corner(WidgetPixels(PixelsOfTwips(Place().Left)), WidgetPixels(PixelsOfTwips(Place().Top)));
  if (!around_.entry.TellsActs()) return corner;
  const QRect screen = widget_->screen()->availableGeometry();
  const QSize room = screen.size() - SizeOfWidget();
  corner.setX(std::clamp(corner.x(), screen.left(), screen.left() + std::max(room.width(), 0)));
  corner.setY(std::clamp(corner.y(), screen.top(), screen.top() + std::max(room.height(), 0)));
  return corner;
}

// OPEN: a window larger than any screen is known to the program in its full size, and shown as far as a large
// desktop reaches: the window system would take memory for all of it.
QSize QtForm::SizeOfWidget() const {
  constexpr QSize kLargeDesktop(4096, 4096);
  const QSize size(std::max(WidgetPixels(ScaleWidth()), 0), std::max(WidgetPixels(ScaleHeight()), 0));
  return size.boundedTo(kLargeDesktop.expandedTo(widget_->screen()->virtualSize()));
}

void QtForm::FitSizable() {
  if (Style().Sizable) {
    widget_->setMinimumSize(0, 0);
    widget_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  } else {
    widget_->setFixedSize(SizeOfWidget());
  }
}

void QtForm::ShowVisible() {
  const bool takesFocus = !Visible() || !std::exchange(ShowWithoutFocus, false);
  widget_->setAttribute(Qt::WA_ShowWithoutActivating, !takesFocus);
  widget_->setVisible(Visible());
  // Bringing it to the front would take a minimised window out of its place.
  if (!Visible() || State() == WindowState::Minimised) return;
  widget_->raise();
  if (takesFocus) Activate();
  WaitForFirstPainting();
}

// The window system gives the front back to the window of which it is the child. The windows of this host are
// all of this kind.
void QtForm::PrepareModal(Form& opener) {
  widget_->setWindowModality(Qt::ApplicationModal);
  widget_->winId();
  static_cast<QtForm&>(opener).widget_->winId();
  widget_->windowHandle()->setTransientParent(static_cast<QtForm&>(opener).widget_->windowHandle());
}

// Waits on the window system itself, so that a waiting window costs nothing.
void QtForm::ServeModal() {
  isServing_ = true;
  if (around_.lead != nullptr) around_.lead->ServeModal(*this);
  while (Visible() && !around_.entry.HasThrown()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  isServing_ = false;
  widget_->windowHandle()->setTransientParent(nullptr);
  widget_->setWindowModality(Qt::NonModal);
  around_.entry.Rethrow();
}

// The program may compute for long before it lets events through; until then its window should not be a hole
// in the screen. The wait has an end, for not every window system tells what it shows.
void QtForm::WaitForFirstPainting() {
  const LogicEntry::Hold hold(around_.entry);
  QElapsedTimer waiting;
  waiting.start();
  while (!widget_->pane().IsPainted() && waiting.elapsed() < kFirstPaintingLimit) {
    DispatchAllButInput();
    QThread::msleep(1);
  }
}

void QtForm::ShowState() {
  constexpr std::array kStates = {Qt::WindowNoState, Qt::WindowMinimized, Qt::WindowMaximized};
  widget_->setWindowState(kStates[static_cast<std::size_t>(State())]);
}

void QtForm::ShowStyle() {
  const WindowStyle& style = Style();
  Qt::WindowFlags flags = style.ToolWindow ? Qt::Tool : Qt::Window;
  // A frame's parts are chosen one by one where there is a frame; the two hints exclude each other.
  flags.setFlag(Qt::CustomizeWindowHint, style.Titlebar);
  flags.setFlag(Qt::FramelessWindowHint, !style.Titlebar);
  flags.setFlag(Qt::WindowTitleHint, style.Titlebar);
  flags.setFlag(Qt::WindowSystemMenuHint, style.ControlBox);
  flags.setFlag(Qt::WindowCloseButtonHint, style.ControlBox);
  flags.setFlag(Qt::WindowMinimizeButtonHint, style.ControlBox && style.MinButton);
  flags.setFlag(Qt::WindowMaximizeButtonHint, style.ControlBox && style.MaxButton && style.Sizable);
  flags.setFlag(Qt::WindowContextHelpButtonHint,
                style.ControlBox && style.WhatsThisButton && !style.MinButton && !style.MaxButton);
  flags.setFlag(Qt::WindowStaysOnTopHint, style.TopMost);
  FitSizable();
  if (flags == widget_->windowFlags()) return;
  QWindow* window = widget_->windowHandle();
  if (window == nullptr || !Visible()) {
    widget_->setWindowFlags(flags);
    return;
  }
  // The widget would hide itself for new flags, and a window that comes and goes loses its place, its order
  // and at times its manager. The window system is told alone, and the window put where it stood.
  widget_->overrideWindowFlags(flags);
  window->setFlags(flags);
  ShowPlace();
}

// The measures of the font asked for last.
struct QtForm::FontMeasures {
  FontFace font;
  int dotsPerInch;
  QFontMetricsF metrics;
};

TextSize QtForm::MeasureText(std::string_view text, const FontFace& font) const {
  const int dotsPerInch = widget_->logicalDpiX();
  if (!measures_ || measures_->font != font || measures_->dotsPerInch != dotsPerInch) {
    measures_ = std::make_unique<FontMeasures>(
        FontMeasures{font, dotsPerInch, QFontMetricsF(ToQFont(font), widget_.get())});
  }
  const QFontMetricsF& metrics = measures_->metrics;
  return {.width = std::ceil(metrics.horizontalAdvance(ToQString(text))),
          .height = std::ceil(metrics.height())};
}

std::unique_ptr<ControlView> QtForm::NewView(Control& control) {
  return NewLook(control, *widget_, around_.entry);
}

void QtForm::ShowSinkFocus() {
  widget_->setFocus();
}

void QtForm::ShowShape() {
  if (!Shape()) return widget_->clearMask();
  std::vector<QRect> runs;
  for (const Span& span : *Shape()) runs.emplace_back(QPoint(span.left, span.y), QPoint(span.right, span.y));
  QRegion region;
  region.setRects(runs.data(), static_cast<int>(runs.size()));
  widget_->setMask(region);
}

// False where the window system moves no window for its program.
bool QtForm::DragBySystem() {
  QWindow* window = widget_->windowHandle();
  return window != nullptr && window->startSystemMove();
}

void QtForm::DragForm() {
  if (around_.lead == nullptr) DragBySystem();
}

void QtForm::ShowSysMenu() {
  if (around_.lead == nullptr) PopUpSysMenu(*this, *widget_);
}

void QtForm::TakeFront() {
  if (around_.front.expected != nullptr && around_.front.expected != this) return;
  around_.front.expected = nullptr;
  around_.entry.Enter([this] { Events().OnActivate(); });
}

void QtForm::TakeSizeOfWidget() {
  if (widget_->size() != SizeOfWidget()) TakeScale(widget_->width(), widget_->height());
}

}  // namespace tessera
