#pragma once

#include <QByteArray>
#include <QString>

#include <map>

namespace zunbrix {

// An INI document, as the list files and the list history use it. Sections and keys are kept sorted by the
// binary order of their UTF-16 units, so a saved file lists them sorted, not in the order they were read.
//
// Reading: a leading FF FE means UTF-16LE, EF BB BF means UTF-8, anything else is read as UTF-8. Lines are split
// at runs of CR and LF. "[name]" opens a section; any other line splits at its first '=' into key and value (no
// '=' means an empty value). Keys starting with '#' are comments and pairs before the first section are dropped.
// Writing: UTF-8 with the mark EF BB BF, CR LF between lines and no line end after the last.
class IniFile {
public:
    using Section = std::map<QString, QString>;

    // The file beside the program, named like it with ".ini".
    IniFile();
    // `path` as it stands, or relative to the program's folder unless isAbsolute.
    IniFile(const QString& path, bool isAbsolute);

    const QString& Path() const { return path_; }

    // Replaces the content with the file's; false if it can't be read.
    bool Load();
    // False if the file can't be written. The previous file stays whole if the write fails midway.
    bool Save() const;
    // Replaces the content with that of the bytes, read by the rules above.
    void Parse(const QByteArray& data);
    QString ToText() const;

    void SetString(const QString& section, const QString& key, const QString& value);
    QString GetString(const QString& section, const QString& key, const QString& defaultValue) const;
    void SetInt(const QString& section, const QString& key, int value);
    // The value's leading decimal number as C's atoi reads it (0 when it has none); defaultValue when missing.
    int GetInt(const QString& section, const QString& key, int defaultValue) const;
    // With an empty key the whole section goes. False if the section, or the key, is not there.
    bool Remove(const QString& section, const QString& key);

private:
    const QString* find(const QString& section, const QString& key) const;

    QString path_;
    std::map<QString, Section> sections_;
};

} // namespace zunbrix
