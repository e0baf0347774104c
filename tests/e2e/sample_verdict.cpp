#include "e2e/sample_verdict.h"

namespace zunbrix::e2e {
namespace {

using samples::SampleCheck;

// Where the game prints (screen.asm): its title on row 6 and the verdict on row 20, from column 3.
constexpr int kTitleRowAddress = 0x20C3;
constexpr int kResultRowAddress = 0x2283;
constexpr int kRowTextLength = 28;

int byteAt(const QByteArray& block, int offset)
{
    return offset < block.size() ? static_cast<std::uint8_t>(block[offset]) : -1;
}

QString checkName(SampleCheck check)
{
    switch (check) {
    case SampleCheck::None: return QStringLiteral("none");
    case SampleCheck::Prg: return QStringLiteral("PRG");
    case SampleCheck::Chr: return QStringLiteral("CHR");
    case SampleCheck::Mirroring: return QStringLiteral("mirroring");
    case SampleCheck::Irq: return QStringLiteral("IRQ");
    }
    return QStringLiteral("unknown");
}

} // namespace

bool SampleVerdict::hasSignature() const
{
    return block.size() == samples::kResultSize && block.startsWith(samples::kResultSignature.data());
}

int SampleVerdict::gameId() const { return byteAt(block, samples::kResultGameOffset); }

bool SampleVerdict::passed() const
{
    return hasSignature() && byteAt(block, samples::kResultStateOffset) == samples::kStatePassed;
}

bool SampleVerdict::failed() const
{
    return hasSignature() && byteAt(block, samples::kResultStateOffset) == samples::kStateFailed;
}

SampleCheck SampleVerdict::check() const
{
    return static_cast<SampleCheck>(byteAt(block, samples::kResultCheckOffset));
}

QString SampleVerdict::describe() const
{
    if (!hasSignature())
        return QStringLiteral("no result block (RAM reads %1)").arg(QString::fromLatin1(block.toHex(' ')));
    if (passed())
        return QStringLiteral("PASS");
    if (!failed())
        return QStringLiteral("no verdict yet");
    return QStringLiteral("FAIL %1 case %2 saw %3")
        .arg(checkName(check()))
        .arg(byteAt(block, samples::kResultCaseOffset))
        .arg(byteAt(block, samples::kResultSeenOffset), 2, 16, QLatin1Char('0'));
}

QString sampleVerdictScript(int maxFrames, const QString& screenshotPath)
{
    QString script = QStringLiteral(R"lua(
local waited = 0
while ram(%1) == 0 and waited < %2 do frames(1) waited = waited + 1 end
frames(2)
put("block", ram_hex(%3, %4))
local function row(address)
  local text = {}
  for i = 0, %5 do text[#text + 1] = string.char((vram(address + i) + 32) % 256) end
  return table.concat(text)
end
put("title", row(%6))
put("result", row(%7))
)lua")
                         .arg(samples::kResultAddress + samples::kResultStateOffset)
                         .arg(maxFrames)
                         .arg(samples::kResultAddress)
                         .arg(samples::kResultSize)
                         .arg(kRowTextLength - 1)
                         .arg(kTitleRowAddress)
                         .arg(kResultRowAddress);
    if (!screenshotPath.isEmpty())
        script += QStringLiteral("screenshot([==[%1]==])\n").arg(screenshotPath);
    return script;
}

SampleVerdict sampleVerdict(const FceuxRun& run)
{
    SampleVerdict verdict;
    verdict.block = QByteArray::fromHex(run.values.value(QStringLiteral("block")).toLatin1());
    verdict.titleOnScreen = run.values.value(QStringLiteral("title")).trimmed();
    verdict.resultOnScreen = run.values.value(QStringLiteral("result")).trimmed();
    return verdict;
}

} // namespace zunbrix::e2e
