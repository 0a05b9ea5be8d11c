#include "qt/boxes.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "qttext/text.h"

namespace tessera {

namespace {

QMessageBox::Icon IconOf(BoxIcon icon) {
  constexpr std::array kIcons = {QMessageBox::NoIcon, QMessageBox::Critical, QMessageBox::Warning,
                                 QMessageBox::Question, QMessageBox::Information};
  return kIcons[static_cast<std::size_t>(icon)];
}

struct ButtonRow {
  BoxAnswer answer;
  QMessageBox::StandardButton button;
  const char* label;
};

constexpr std::array kButtons = {
    ButtonRow{BoxAnswer::Ok, QMessageBox::Ok, "OK"},
    ButtonRow{BoxAnswer::Cancel, QMessageBox::Cancel, "Cancelar"},
    ButtonRow{BoxAnswer::Yes, QMessageBox::Yes, "&Sim"},
    ButtonRow{BoxAnswer::No, QMessageBox::No, "&Não"},
};

bool Offers(BoxButtons buttons, BoxAnswer answer) {
  if (buttons == BoxButtons::YesNo) return answer == BoxAnswer::Yes || answer == BoxAnswer::No;
  return answer == BoxAnswer::Ok || (answer == BoxAnswer::Cancel && buttons == BoxButtons::OkCancel);
}

// The input form: Enter in the field moves on as Tab does, so that a second one presses OK.
class EntraTxt final : public QDialog {
 public:
  EntraTxt(const TextInput& input, QWidget* parent) : QDialog(parent) {
    setObjectName("EntraTxt");
    setWindowTitle(ToQString(input.caption));

    auto* rotulo = new QLabel(ToQLines(input.prompt), this);
    rotulo->setObjectName("LblRotulo");
    rotulo->setTextFormat(Qt::PlainText);
    rotulo->setWordWrap(true);
    texto_ = new QLineEdit(ToQString(input.initial), this);
    texto_->setObjectName("TxtTexto");
    texto_->setMinimumWidth(kFieldWidth);
    texto_->setAccessibleName(ToQLines(input.prompt));
    texto_->selectAll();
    auto* ok = NewButton("BtnOK", "OK", InputEnd::Confirmed);
    auto* cancelar = NewButton("BtnCancelar", "Cancelar", InputEnd::Cancelled);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancelar);
    auto* column = new QVBoxLayout(this);
    column->addWidget(rotulo);
    column->addWidget(texto_);
    column->addLayout(buttons);
    texto_->setFocus();
  }

  TextInputAnswer Answer() const { return {end_, FromQString(texto_->text())}; }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      if (auto* button = qobject_cast<QPushButton*>(focusWidget())) {
        button->click();
      } else {
        focusNextChild();
      }
    } else if (event->key() == Qt::Key_Escape) {
      // OPEN: Escape is the button Cancelar, as in every form.
      End(InputEnd::Cancelled);
    } else {
      QDialog::keyPressEvent(event);
    }
  }

 private:
  static constexpr int kFieldWidth = 320;

  QPushButton* NewButton(const char* name, const char* label, InputEnd end) {
    auto* button = new QPushButton(QString::fromUtf8(label), this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, end] { End(end); });
    return button;
  }

  void End(InputEnd end) {
    end_ = end;
    accept();
  }

  QLineEdit* texto_ = nullptr;
  InputEnd end_ = InputEnd::ClosedByFrame;
};

}  // namespace

BoxAnswer ShowMessageBox(const Box& box, QWidget* parent) {
  QMessageBox dialog(parent);
  dialog.setObjectName("Mensagem");
  dialog.setIcon(IconOf(box.icon));
  dialog.setWindowTitle(ToQString(box.title));
  dialog.setTextFormat(Qt::PlainText);
  dialog.setText(ToQLines(box.text));
  for (const ButtonRow& row : kButtons) {
    if (!Offers(box.buttons, row.answer)) continue;
    auto* button = dialog.addButton(row.button);
    button->setText(QString::fromUtf8(row.label));
    if (row.answer == box.defaultAnswer) dialog.setDefaultButton(button);
  }
  const int pressed = dialog.exec();
  for (const ButtonRow& row : kButtons) {
    if (pressed == row.button) return row.answer;
  }
  return box.defaultAnswer;  // closed from outside, with the program
}

TextInputAnswer ShowEntraTxt(const TextInput& input, QWidget* parent) {
  EntraTxt dialog(input, parent);
  dialog.exec();
  return dialog.Answer();
}

void ShowMsgExec(const std::string& sentence) {
  constexpr int kNoticeWidth = 380;
  QDialog dialog;
  dialog.setObjectName("MsgExec");
  dialog.setWindowTitle("Tessera");

  auto* notice = new QLabel(QString::fromStdString(sentence), &dialog);
  notice->setObjectName("LblAviso");
  notice->setWordWrap(true);
  notice->setMinimumWidth(kNoticeWidth);
  QFont large = notice->font();
  large.setPointSizeF(large.pointSizeF() * 1.2);
  notice->setFont(large);
  auto* name = new QLabel("Compilador do Tessera", &dialog);
  name->setObjectName("LblNome");
  auto* purpose = new QLabel(QStringLiteral("Utilitário para compilar programas do Tessera"), &dialog);
  purpose->setObjectName("LblDescricao");
  auto* version = new QLabel(QStringLiteral("VERSÃO 1.0.71"), &dialog);
  version->setObjectName("LblVersao");
  auto* close = new QPushButton("OK", &dialog);
  close->setObjectName("BtnOK");
  QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::accept);

  auto* column = new QVBoxLayout(&dialog);
  column->setContentsMargins(28, 24, 28, 20);
  column->setSpacing(10);
  column->addWidget(notice);
  column->addSpacing(8);
  column->addWidget(name);
  column->addWidget(purpose);
  column->addWidget(version);
  column->addSpacing(8);
  column->addWidget(close, 0, Qt::AlignRight);
  dialog.exec();
}

}  // namespace tessera
