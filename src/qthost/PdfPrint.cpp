#include "qthost/PdfPrint.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <algorithm>

#include "orvel/OrvelPrintDoc.h"

namespace orvel {

namespace {

using Content = PrintDocument::Content;
using Section = PrintDocument::Section;

constexpr double kMarginMillimetres = 15;
constexpr double kRowSpacing = 1.45;  // a table row's height in lines

QString Q(const std::string& text) { return QString::fromStdString(text); }

Qt::Alignment AlignmentOf(int32_t alignment) {
  switch (alignment) {
    case 1:
      return Qt::AlignRight;
    case 2:
      return Qt::AlignHCenter;
    default:
      return Qt::AlignLeft;
  }
}

void PrepareLayout(const Content& content, QPagedPaintDevice& device) {
  QPageLayout layout(
      QPageSize(QPageSize::A4),
      content.orientation == OrvelPrintDoc::kLandscape ? QPageLayout::Landscape
                                                       : QPageLayout::Portrait,
      QMarginsF(kMarginMillimetres, kMarginMillimetres, kMarginMillimetres, kMarginMillimetres),
      QPageLayout::Millimeter);
  device.setPageLayout(layout);
}

// One printout being painted: the pen's place on the page and the page
// breaks, table captions repeated at the top of each new page.
class Painter {
 public:
  Painter(const Content& content, QPagedPaintDevice& device)
      : device_(device),
        painter_(&device),
        dpi_(device.logicalDpiY()),
        width_(device.width()),
        bottom_(device.height()) {
    base_.setFamily("DejaVu Sans");
    base_.setPointSizeF(content.fontSize > 0 ? content.fontSize : 9);
    pen_ = QPen(Qt::black, std::max(1.0, dpi_ / 200.0));
    painter_.setPen(pen_);
  }

  void PaintSection(const Section& section) {
    section_ = &section;
    Columns(section);
    if (!section.columns.empty()) Captions();
    for (const auto& item : section.items) {
      if (item.isRow) {
        Row(item);
      } else {
        Line(item);
      }
    }
    y_ += LineHeight(base_) * 0.6;
  }

 private:
  double LineHeight(const QFont& font) { return QFontMetricsF(font, &device_).height(); }
  double RowHeight() { return LineHeight(base_) * kRowSpacing; }

  void NewPage() {
    device_.newPage();
    y_ = 0;
  }

  // Room for `height` more on this page, a new page (with the table's
  // captions) when there is none.
  void Room(double height, bool table) {
    if (y_ + height <= bottom_ || y_ == 0) return;
    NewPage();
    if (table && section_ && !section_->columns.empty()) Captions();
  }

  void Columns(const Section& section) {
    xs_.clear();
    widths_.clear();
    double total = 0;
    for (const auto& column : section.columns) total += std::max(0.3, column.width) / 2.54 * dpi_;
    // A table wider than the page is narrowed to fit.
    const double scale = total > width_ ? width_ / total : 1.0;
    double x = 0;
    for (const auto& column : section.columns) {
      double w = std::max(0.3, column.width) / 2.54 * dpi_ * scale;
      xs_.push_back(x);
      widths_.push_back(w);
      x += w;
    }
  }

  double TableRight() const { return xs_.empty() ? 0 : xs_.back() + widths_.back(); }

  void Cell(size_t column, const std::string& text, bool bold, int32_t alignment, double height) {
    QFont font = base_;
    font.setBold(bold);
    painter_.setFont(font);
    const double pad = dpi_ * 0.04;
    QRectF rect(xs_[column] + pad, y_, widths_[column] - 2 * pad, height);
    QString shown = QFontMetricsF(font, &device_).elidedText(Q(text), Qt::ElideRight, rect.width());
    painter_.drawText(rect, AlignmentOf(alignment) | Qt::AlignVCenter, shown);
  }

  void VerticalLines(double top, double height) {
    for (size_t c = 0; c < xs_.size(); ++c)
      painter_.drawLine(QPointF(xs_[c], top), QPointF(xs_[c], top + height));
    painter_.drawLine(QPointF(TableRight(), top), QPointF(TableRight(), top + height));
  }

  void Captions() {
    const double height = RowHeight();
    Room(height * 2, false);
    painter_.drawLine(QPointF(0, y_), QPointF(TableRight(), y_));
    for (size_t c = 0; c < xs_.size(); ++c) {
      Cell(c, section_->columns[c].caption, true, section_->columns[c].alignment, height);
    }
    if (section_->verticalLines) VerticalLines(y_, height);
    y_ += height;
    painter_.drawLine(QPointF(0, y_), QPointF(TableRight(), y_));
  }

  void Row(const PrintDocument::Item& item) {
    const double height = RowHeight();
    Room(height, true);
    for (const auto& cell : item.cells) {
      if (cell.column < 0 || static_cast<size_t>(cell.column) >= xs_.size()) continue;
      auto column = static_cast<size_t>(cell.column);
      Cell(column, cell.text, cell.bold, section_->columns[column].alignment, height);
    }
    if (section_->verticalLines) VerticalLines(y_, height);
    y_ += height;
    if (section_->horizontalLines) painter_.drawLine(QPointF(0, y_), QPointF(TableRight(), y_));
  }

  void Line(const PrintDocument::Item& item) {
    QFont font = base_;
    if (item.size > 0) font.setPointSizeF(item.size);
    font.setBold(item.bold);
    painter_.setFont(font);
    const int flags = static_cast<int>(AlignmentOf(item.alignment)) | Qt::TextWordWrap;
    QRectF bounds = painter_.boundingRect(QRectF(0, 0, width_, bottom_), flags, Q(item.text));
    const double height = std::max(bounds.height(), LineHeight(font));
    Room(height, false);
    painter_.drawText(QRectF(0, y_, width_, height), flags, Q(item.text));
    y_ += height;
  }

  QPagedPaintDevice& device_;
  QPainter painter_;
  double dpi_;
  double width_;
  double bottom_;
  QFont base_;
  QPen pen_;
  double y_ = 0;
  const Section* section_ = nullptr;
  std::vector<double> xs_;
  std::vector<double> widths_;
};

}  // namespace

PdfPrint::PdfPrint(std::string folder) : folder_(std::move(folder)) {
  if (folder_.empty()) folder_ = (QDir::tempPath() + "/orvel-print").toStdString();
}

PrintDocument::Renderer PdfPrint::Renderer() {
  return [this](const PrintDocument::Content& content, bool preview) {
    WritePdf(content);
    if (preview) Preview(content);
  };
}

void PdfPrint::Paint(const PrintDocument::Content& content, QPagedPaintDevice& device) {
  Painter painter(content, device);
  for (const auto& section : content.sections) painter.PaintSection(section);
}

std::string PdfPrint::WritePdf(const PrintDocument::Content& content) {
  if (!QDir().mkpath(Q(folder_))) return "";
  QString stamp = QDateTime::currentDateTime().toString("yyyyMMdd-HHmmss");
  QString path = Q(folder_) + "/spaudinys-" + stamp + "-" + QString::number(++count_) + ".pdf";
  {
    QPdfWriter writer(path);
    writer.setResolution(300);
    writer.setCreator(QString::fromUtf8("Orvel"));
    PrepareLayout(content, writer);
    Paint(content, writer);
  }
  if (QFileInfo(path).size() <= 0) return "";
  lastFile_ = path.toStdString();
  return lastFile_;
}

void PdfPrint::Preview(const PrintDocument::Content& content) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  PrepareLayout(content, printer);
  QPrintPreviewDialog dialog(&printer, parent_);
  dialog.resize(900, 1000);
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested,
                   [&content](QPrinter* target) { Paint(content, *target); });
  dialog.exec();
}

}  // namespace orvel
