#include "qt/desktop_dialogs.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QPrintDialog>
#include <QPrinter>

#include "qttext/text.h"

namespace tessera {

namespace {

// "Textos" and "*.txt;*.csv" as the window system names a choice of files.
QString NameFilter(const FileRequest& request) {
  QString patterns = ToQString(request.pattern).replace(u';', u' ').trimmed();
  if (patterns.isEmpty()) patterns = QStringLiteral("*");
  return ToQString(request.description).remove(u'(').remove(u')') + QStringLiteral(" (") + patterns + u')';
}

// A dialog under its title, where it has one.
template <typename Dialog>
bool IsAccepted(Dialog& dialog, const char* name, std::string_view title) {
  dialog.setObjectName(QLatin1String(name));
  if (!title.empty()) dialog.setWindowTitle(ToQString(title));
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace

std::optional<std::string> ShowFileDialog(const FileRequest& request, QWidget* parent) {
  QFileDialog dialog(parent);
  dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setNameFilter(NameFilter(request));
  dialog.setLabelText(QFileDialog::Accept, request.save ? "Salvar" : "Abrir");
  dialog.setLabelText(QFileDialog::Reject, "Cancelar");
  dialog.setLabelText(QFileDialog::FileName, "Nome:");
  dialog.setLabelText(QFileDialog::FileType, "Tipo:");
  dialog.setLabelText(QFileDialog::LookIn, "Pasta:");
  if (!request.proposed.empty()) dialog.selectFile(ToQString(request.proposed));
  if (!IsAccepted(dialog, "DialogoArquivo", request.title)) return std::nullopt;
  return FromQString(dialog.selectedFiles().value(0));
}

std::optional<std::int32_t> ShowColourDialog(std::string_view title, QWidget* parent) {
  QColorDialog dialog(parent);
  if (!IsAccepted(dialog, "DialogoCor", title)) return std::nullopt;
  const QColor colour = dialog.selectedColor();
  return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

std::optional<ChosenFont> ShowFontDialog(std::string_view title, QWidget* parent) {
  QFontDialog dialog(parent);
  if (!IsAccepted(dialog, "DialogoFonte", title)) return std::nullopt;
  const QFont font = dialog.selectedFont();
  return ChosenFont{.name = FromQString(font.family()),
                    .size = font.pointSizeF(),
                    .bold = font.bold(),
                    .italic = font.italic()};
}

std::optional<std::string> ShowPrinterDialog(std::string_view title, QWidget* parent) {
  QPrinter printer;
  QPrintDialog dialog(&printer, parent);
  if (!IsAccepted(dialog, "DialogoImpressora", title)) return std::nullopt;
  const bool isFile = printer.outputFormat() == QPrinter::PdfFormat && !printer.outputFileName().isEmpty();
  return FromQString(isFile ? printer.outputFileName() : printer.printerName());
}

}  // namespace tessera
