#include "frame/version_number.h"

#include <QStringList>

namespace zunbrix {

VersionNumber VersionNumber::fromText(const QString& text)
{
    const QStringList pieces = text.trimmed().split(QLatin1Char('.'));
    if (pieces.size() != 4)
        return {};
    std::array<std::uint32_t, 4> parts{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        bool ok = false;
        parts[i] = pieces[static_cast<qsizetype>(i)].toUInt(&ok);
        if (!ok)
            return {};
    }
    return {parts[0], parts[1], parts[2], parts[3]};
}

QString VersionNumber::toText() const
{
    return QStringLiteral("%1.%2.%3.%4").arg(parts_[0]).arg(parts_[1]).arg(parts_[2]).arg(parts_[3]);
}

QString ExeVersion()
{
    return QStringLiteral(ZUNBRIX_VERSION);
}

} // namespace zunbrix
