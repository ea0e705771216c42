#pragma once

#include <QPointer>
#include <QWidget>
#include <string>

#include "hostkit/PrintDocument.h"

class QPagedPaintDevice;

namespace orvel {

// The printouts of the window host. A finished print document is written
// as a PDF file into the print folder; when a preview is asked it is also
// shown in a print preview dialog, painted by the same routine.
class PdfPrint {
 public:
  // `folder` is created when missing; "" is the system's temp/orvel-print.
  explicit PdfPrint(std::string folder = {});

  void SetParentWidget(QWidget* parent) { parent_ = parent; }

  // The renderer for ReferenceHostClasses::SetPrintRenderer. It lives no
  // longer than this object.
  PrintDocument::Renderer Renderer();

  // Writes the document as a new PDF file; returns its path, "" when the
  // file could not be written.
  std::string WritePdf(const PrintDocument::Content& content);
  // Shows the document in a print preview dialog until it is closed.
  void Preview(const PrintDocument::Content& content);

  const std::string& Folder() const { return folder_; }
  const std::string& LastFile() const { return lastFile_; }

  // Paints the document onto the device page by page (text lines, tables
  // with their captions repeated on each page). The device's page layout
  // must already have the document's orientation.
  static void Paint(const PrintDocument::Content& content, QPagedPaintDevice& device);

 private:
  std::string folder_;
  std::string lastFile_;
  int count_ = 0;
  QPointer<QWidget> parent_;
};

}  // namespace orvel
