#pragma once

#include <QString>

#include <array>
#include <compare>
#include <cstdint>

namespace zunbrix {

// A program version of four numbers, compared from the first: "1.0.0.10" is newer than "1.0.0.9".
// Text that does not read as four numbers gives 0.0.0.0.
class VersionNumber {
public:
    VersionNumber() = default;
    VersionNumber(std::uint32_t major, std::uint32_t minor, std::uint32_t build, std::uint32_t revision)
        : parts_{major, minor, build, revision} {}

    static VersionNumber fromText(const QString& text);

    std::uint32_t part(int index) const { return parts_[static_cast<std::size_t>(index)]; }
    QString toText() const;

    auto operator<=>(const VersionNumber&) const = default;

private:
    std::array<std::uint32_t, 4> parts_{};
};

// The running program's version, in the form above: the project's version, fixed when the program is built.
QString ExeVersion();

} // namespace zunbrix
