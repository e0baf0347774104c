#include "frame/crash_dump.h"

#include "frame/paths.h"
#include "frame/registry_store.h"

#include <QDateTime>
#include <QDir>
#include <QRegularExpression>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <thread>

namespace zunbrix {

namespace {

const QString kSettingsKey = QStringLiteral("Software\\Zunbrix");
const QString kLastReportValue = QStringLiteral("LastCrashReport");

constexpr std::int64_t kMsPerDay = 86'400'000;

struct CivilDate {
    std::int64_t year;
    unsigned month;
    unsigned day;
};

// The proleptic Gregorian date of a day counted from 1970-01-01, in whole-number arithmetic (H. Hinnant's
// civil_from_days): the handler cannot call the C library's calendar functions.
CivilDate civilFromDays(std::int64_t days)
{
    days += 719'468; // from 0000-03-01, so that the leap day ends each 400-, 100- and 4-year cycle
    const std::int64_t era = (days >= 0 ? days : days - 146'096) / 146'097;
    const auto dayOfEra = static_cast<unsigned>(days - era * 146'097);
    const unsigned yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36'524 - dayOfEra / 146'096) / 365;
    const unsigned dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const unsigned shiftedMonth = (5 * dayOfYear + 2) / 153; // March is 0
    const unsigned day = dayOfYear - (153 * shiftedMonth + 2) / 5 + 1;
    const unsigned month = shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9;
    return {yearOfEra + era * 400 + (month <= 2 ? 1 : 0), month, day};
}

// The UTC time in a report's name, in milliseconds since 1970; nothing for a name of another form.
std::optional<std::int64_t> reportTime(const QString& fileName)
{
    static const QRegularExpression pattern(
        QStringLiteral("_(\\d{4})-(\\d\\d)-(\\d\\d) (\\d\\d)_(\\d\\d)_(\\d\\d)\\.(\\d{1,3})\\.dmp$"));
    const QRegularExpressionMatch match = pattern.match(fileName);
    if (!match.hasMatch())
        return std::nullopt;
    const auto part = [&match](int index) { return match.captured(index).toInt(); };
    const QDateTime time(QDate(part(1), part(2), part(3)), QTime(part(4), part(5), part(6), part(7)), Qt::UTC);
    if (!time.isValid())
        return std::nullopt;
    return time.toMSecsSinceEpoch();
}

} // namespace

char* AppendNumber(char* out, std::uint64_t value, unsigned base, int minDigits)
{
    char digits[20];
    int count = 0;
    do {
        digits[count++] = "0123456789abcdef"[value % base];
        value /= base;
    } while (value != 0);
    while (count < minDigits && count < 20)
        digits[count++] = '0';
    while (count > 0)
        *out++ = digits[--count];
    return out;
}

void FormatCrashNameTime(std::int64_t msSinceEpoch, char (&out)[kCrashNameTimeCapacity])
{
    std::int64_t days = msSinceEpoch / kMsPerDay;
    std::int64_t msOfDay = msSinceEpoch % kMsPerDay;
    if (msOfDay < 0) {
        msOfDay += kMsPerDay;
        --days;
    }
    const CivilDate date = civilFromDays(days);
    const auto ms = static_cast<std::uint64_t>(msOfDay);
    // "_%04d-%02d-%02d %02d_%02d_%02d.%d.dmp"
    const struct {
        char before;
        std::uint64_t value;
        int digits;
    } fields[] = {{'_', static_cast<std::uint64_t>(date.year), 4},
                  {'-', date.month, 2},
                  {'-', date.day, 2},
                  {' ', ms / 3'600'000, 2},
                  {'_', ms / 60'000 % 60, 2},
                  {'_', ms / 1000 % 60, 2},
                  {'.', ms % 1000, 1}};
    char* end = out;
    for (const auto& field : fields) {
        *end++ = field.before;
        end = AppendNumber(end, field.value, 10, field.digits);
    }
    for (const char c : ".dmp")
        *end++ = c;
}

QStringList CrashReportFolders()
{
    QStringList folders{ExeFolder() + QStringLiteral("/Dump")};
    const QString userData = KnownFolder(KnownFolderId::LocalAppData);
    if (!userData.isEmpty())
        folders.push_back(userData + QStringLiteral("/Zunbrix/Dump"));
    return folders;
}

QString TakeNewCrashReport()
{
    QString announced;
    RegistryStore::GetString(kSettingsKey, kLastReportValue, announced);
    std::int64_t newestTime = reportTime(announced).value_or(INT64_MIN);
    QString newest;
    for (const QString& folder : CrashReportFolders()) {
        const QStringList names = QDir(folder).entryList({QStringLiteral("*.dmp")}, QDir::Files);
        for (const QString& name : names) {
            const std::optional<std::int64_t> time = reportTime(name);
            if (time && *time > newestTime) {
                newestTime = *time;
                newest = folder + QLatin1Char('/') + name;
            }
        }
    }
    if (!newest.isEmpty())
        RegistryStore::SetString(kSettingsKey, kLastReportValue, newest);
    return newest;
}

void CrashWhenTestAsks()
{
    const QByteArray kind = qgetenv("ZUNBRIX_TEST_CRASH");
    if (kind != "segv" && kind != "abort")
        return;
    static std::atomic<bool> waiting{false};
    std::thread([] {
        waiting = true;
        for (;;)
            std::this_thread::sleep_for(std::chrono::hours(1));
    }).detach();
    while (!waiting)
        std::this_thread::yield();
    if (kind == "abort")
        std::abort();
    // Read at run time, so that the compiler sees no constant null-page address to warn about.
    static volatile std::uintptr_t faultAddress = 0x10;
    *reinterpret_cast<volatile int*>(faultAddress) = 1;
}

} // namespace zunbrix
