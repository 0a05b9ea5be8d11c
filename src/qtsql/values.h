// Values between the drivers' variants and the system's own.
#pragma once

#include <QVariant>

#include "sql/provider.h"

class QSqlField;

namespace tessera::qtsql {

sql::SqlValue FromVariant(const QVariant& value);
QVariant ToVariant(const sql::SqlValue& value);

// What a column of a server takes, by the type that the driver tells.
sql::ColumnKind KindOf(const QSqlField& field, sql::Engine engine);

std::string ToUtf8(const QString& text);
QString FromUtf8(const std::string& text);

}  // namespace tessera::qtsql
