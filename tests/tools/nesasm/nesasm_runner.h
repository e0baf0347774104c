#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zunbrix::testing {

// A temporary folder in which the real nesasm executable runs, as the build runs it: in the folder of the
// main source, with the source named on the command line.
class AsmFolder {
public:
    struct Run {
        int exitCode = 0;
        std::string output; // everything the tool printed
    };

    QString path(const QString& name) const { return folder_.filePath(name); }

    void write(const QString& name, const QByteArray& content) const
    {
        QDir().mkpath(QFileInfo(path(name)).absolutePath());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
        file.write(content);
    }

    bool exists(const QString& name) const { return QFile::exists(path(name)); }

    std::vector<std::uint8_t> read(const QString& name) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        const QByteArray bytes = file.readAll();
        return {bytes.begin(), bytes.end()};
    }

    Run run(const QStringList& arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(folder_.path());
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(NESASM_EXECUTABLE, arguments);
        process.waitForFinished(30000);
        Run run;
        run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1000;
        run.output = process.readAll().toStdString();
        return run;
    }

    // Assembles main.asm without a header and returns the banks; the run must succeed.
    std::vector<std::uint8_t> banksOf(const QByteArray& source) const
    {
        write("main.asm", source);
        const Run result = run({"-raw", "main.asm"});
        EXPECT_EQ(result.exitCode, 0) << result.output;
        return read("main.nes");
    }

private:
    QTemporaryDir folder_;
};

inline std::vector<std::uint8_t> prefix(const std::vector<std::uint8_t>& bytes, std::size_t count)
{
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(std::min(count, bytes.size()))};
}

} // namespace zunbrix::testing
