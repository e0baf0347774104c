#pragma once

#include "e2e/fceux_runner.h"
#include "samples/sample_games.h"

#include <QByteArray>
#include <QString>

namespace zunbrix::e2e {

// What a sample game said about its board: its result block from RAM and the text on its screen.
struct SampleVerdict {
    QByteArray block;     // the result block; empty when the script could not read it
    QString titleOnScreen;  // the title row, as text
    QString resultOnScreen; // the verdict row, as text

    bool hasSignature() const;
    int gameId() const;
    bool passed() const;
    bool failed() const;
    samples::SampleCheck check() const;
    // "PASS", "FAIL <check> case <n> saw <x>", or why there is no verdict, for test messages.
    QString describe() const;
};

// Lua for a run of a sample game, once it has started: waits up to `maxFrames` for its verdict, then
// reports the result block and the screen's title and verdict rows; saves a screenshot when `screenshotPath`
// is given.
QString sampleVerdictScript(int maxFrames, const QString& screenshotPath = {});

SampleVerdict sampleVerdict(const FceuxRun& run);

} // namespace zunbrix::e2e
