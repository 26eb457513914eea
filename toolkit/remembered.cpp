#include "toolkit/remembered.h"

#include <QSettings>

namespace moistair {

namespace {

QSettings settings() {
  return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("moistair"), QStringLiteral("moistair"));
}

}  // namespace

QVariant remembered(const char* name) { return settings().value(QString::fromUtf8(name)); }

void remember(const char* name, const QVariant& value) {
  if (remembered(name) != value) settings().setValue(QString::fromUtf8(name), value);
}

void forgetAll() { settings().clear(); }

}  // namespace moistair
