#include "qtsql/values.h"

#include <QDateTime>
#include <QSqlField>

namespace tessera::qtsql {

using sql::ColumnKind;
using sql::Kind;
using sql::SqlValue;

namespace {

bool IsWhole(int type) {
  return type == QMetaType::Int || type == QMetaType::LongLong || type == QMetaType::Short ||
         type == QMetaType::UInt || type == QMetaType::ULongLong || type == QMetaType::UShort ||
         type == QMetaType::Char || type == QMetaType::SChar || type == QMetaType::UChar ||
         type == QMetaType::Long || type == QMetaType::ULong;
}

SqlValue TextOf(Kind kind, const QString& text) {
  return SqlValue::Of(kind, ToUtf8(text));
}

}  // namespace

std::string ToUtf8(const QString& text) {
  return text.toStdString();
}

QString FromUtf8(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

SqlValue FromVariant(const QVariant& value) {
  if (!value.isValid() || value.isNull()) return {};
  const int type = value.metaType().id();
  if (type == QMetaType::ULongLong && value.toULongLong() > static_cast<qulonglong>(INT64_MAX))
    return TextOf(Kind::Decimal, value.toString());
  if (IsWhole(type)) return SqlValue::Of(Kind::Integer, value.toLongLong());
  switch (type) {
    case QMetaType::Bool:
      return SqlValue::Of(Kind::Truth, value.toBool() ? 1 : 0);
    case QMetaType::Double:
    case QMetaType::Float:
      return SqlValue::Of(value.toDouble());
    case QMetaType::QDate:
      return TextOf(Kind::Date, value.toDate().toString(Qt::ISODate));
    case QMetaType::QTime:
      return TextOf(Kind::Time, value.toTime().toString(Qt::ISODateWithMs));
    case QMetaType::QDateTime:
      return TextOf(Kind::Stamp, value.toDateTime().toString(u"yyyy-MM-ddTHH:mm:ss.zzz"));
    case QMetaType::QByteArray:
      return SqlValue::Of(Kind::Bytes, value.toByteArray().toStdString());
    default:
      return TextOf(Kind::Text, value.toString());
  }
}

QVariant ToVariant(const SqlValue& value) {
  switch (value.kind) {
    case Kind::Null:
      return QVariant(QMetaType(QMetaType::QString));
    case Kind::Integer:
      return QVariant::fromValue<qlonglong>(value.integer);
    case Kind::Truth:
      return value.integer != 0;
    case Kind::Real:
      return value.real;
    case Kind::Date:
      return QDate::fromString(FromUtf8(value.text), Qt::ISODate);
    case Kind::Time:
      return QTime::fromString(FromUtf8(value.text), Qt::ISODateWithMs);
    case Kind::Stamp:
      return QDateTime::fromString(FromUtf8(value.text), Qt::ISODateWithMs);
    case Kind::Bytes:
      return QByteArray(value.text.data(), static_cast<qsizetype>(value.text.size()));
    case Kind::Text:
    case Kind::Decimal:
      return FromUtf8(value.text);
  }
  return {};
}

ColumnKind KindOf(const QSqlField& field, sql::Engine engine) {
  const int type = field.metaType().id();
  // MariaDB keeps truth values in its smallest integers.
  if (engine == sql::Engine::MariaDb && (type == QMetaType::Char || type == QMetaType::SChar))
    return ColumnKind::Truth;
  if (IsWhole(type)) return ColumnKind::Integer;
  switch (type) {
    case QMetaType::Bool:
      return ColumnKind::Truth;
    // An exact decimal and a float are one type to the drivers; digits serve both.
    case QMetaType::Double:
    case QMetaType::Float:
      return ColumnKind::Decimal;
    case QMetaType::QDate:
      return ColumnKind::Date;
    case QMetaType::QTime:
      return ColumnKind::Time;
    case QMetaType::QDateTime:
      return ColumnKind::Stamp;
    case QMetaType::QByteArray:
      return ColumnKind::Bytes;
    default:
      return ColumnKind::Text;
  }
}

}  // namespace tessera::qtsql
