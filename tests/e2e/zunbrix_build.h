#pragma once

#include <QString>
#include <QStringList>

namespace zunbrix::e2e {

// Runs the real `zunbrix build` with `arguments`, its work area below `dataHome`. Empty when it succeeded,
// otherwise what it printed, or that it did not finish within two minutes.
QString zunbrixBuild(const QStringList& arguments, const QString& dataHome);

} // namespace zunbrix::e2e
