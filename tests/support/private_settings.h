#pragma once

#include <QByteArray>
#include <QTemporaryDir>
#include <QtGlobal>

namespace zunbrix::testing {

// Points the settings store at a fresh temporary folder for the life of the object, so tests never touch the
// user's real settings, and puts the previous redirection back afterwards.
class PrivateSettings {
public:
    PrivateSettings()
        : previous_(qgetenv("ZUNBRIX_CONFIG_DIR")), hadPrevious_(qEnvironmentVariableIsSet("ZUNBRIX_CONFIG_DIR"))
    {
        qputenv("ZUNBRIX_CONFIG_DIR", folder_.path().toLocal8Bit());
    }
    ~PrivateSettings()
    {
        if (hadPrevious_)
            qputenv("ZUNBRIX_CONFIG_DIR", previous_);
        else
            qunsetenv("ZUNBRIX_CONFIG_DIR");
    }
    PrivateSettings(const PrivateSettings&) = delete;
    PrivateSettings& operator=(const PrivateSettings&) = delete;

    QString folder() const { return folder_.path(); }

private:
    QTemporaryDir folder_;
    QByteArray previous_;
    bool hadPrevious_;
};

} // namespace zunbrix::testing
