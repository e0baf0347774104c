#pragma once

#include "frame/string_table.h"

#include <QByteArray>
#include <QMap>
#include <QString>

namespace zunbrix {

// A text in each interface language, keyed by the language's name ("en-us", "zh-cn").
using LanguageTexts = QMap<QString, QString>;

// notify.json: a message to show to the user once, or at every start.
struct NotifyRecord {
    int notifyId = 0;
    bool restartShow = false;
    LanguageTexts notifyMessage;
};

// update.json: the newest program and where to fetch it.
struct UpdateRecord {
    QString version;
    QString urlX86;        // the Windows program file
    QString urlLinuxX64;   // the Linux x86-64 program file
    QString notifyId;      // read and kept, not used further
    bool forceUpdate = false;
    LanguageTexts updateDescribe;
    QString sha256;        // the program file's hash in hexadecimal; "" when not given
};

// The records from their JSON text. A key that is missing or holds a value of another type than its own keeps
// the default; text that does not parse as a JSON object gives a record of defaults.
NotifyRecord ParseNotifyRecord(const QByteArray& json);
UpdateRecord ParseUpdateRecord(const QByteArray& json);

// The text for the interface language; "" when the record has none for it.
QString TextFor(const LanguageTexts& texts, Language language);

} // namespace zunbrix
