#include "designer/design_error.h"

#include <array>

namespace zunbrix {

namespace {

// Indexed by DesignFault; %1 is the file, %2 the record type.
constexpr std::array<const char*, 8> kFaultTexts = {
    "",
    "Cannot open \"%1\".",
    "\"%1\" is empty; nothing was loaded.",
    "\"%1\" is too large to be a design file; it was not loaded.",
    "\"%1\" holds a record of type %2 that is larger than its field; nothing was loaded.",
    "\"%1\" holds a record of type %2 that is damaged; nothing was loaded.",
    "More than 64 sprites are in range; a sprite file holds 64. \"%1\" was not written.",
    "Cannot write \"%1\".",
};

} // namespace

QString DesignResult::message() const
{
    const QString path = this->path.isEmpty() ? QStringLiteral("(work state)") : this->path;
    return QString::fromLatin1(kFaultTexts[static_cast<std::size_t>(fault)]).arg(path, QString::number(recordType));
}

} // namespace zunbrix
