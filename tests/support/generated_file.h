#pragma once

#include <QFile>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <string>

// The bytes of a generated file as text; "<missing>" when it does not exist.
inline std::string fileText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return "<missing>";
    return file.readAll().toStdString();
}

// Collects what the code under test says on the debug channel while it lives.
class DebugMessages {
public:
    DebugMessages() { previous_ = qInstallMessageHandler(&DebugMessages::collect); active_ = this; }
    ~DebugMessages()
    {
        qInstallMessageHandler(previous_);
        active_ = nullptr;
    }
    DebugMessages(const DebugMessages&) = delete;
    DebugMessages& operator=(const DebugMessages&) = delete;

    QStringList lines;

private:
    static void collect(QtMsgType, const QMessageLogContext&, const QString& message) { active_->lines.push_back(message); }

    QtMessageHandler previous_ = nullptr;
    static inline DebugMessages* active_ = nullptr;
};
