#pragma once

#include <QString>

#include <optional>

namespace zunbrix {

// Path text and file system helpers. Both '\' and '/' separate folders on every platform, because list files
// written on Windows are read elsewhere and back. Paths these helpers build use '/', which Qt accepts everywhere.
// Nothing here shows a message: failures are false or "".

// The running program: its full path, its folder, its file name.
QString ExePath();
QString ExeFolder();
QString ExeFileName(bool withExtension);

// Up to, not including, the last separator; "" without one.
QString FolderOf(const QString& path);
// Behind the last separator; withExtension false drops the file name's part from its last '.' on.
QString FileNameOf(const QString& path, bool withExtension);
// The file name's part after its last '.' ("" if none), with the '.' when withDot.
QString ExtensionOf(const QString& path, bool withDot);

// The path with every '\' turned into '/'.
QString WithForwardSlashes(const QString& path);

// A path is absolute when it starts with a separator or a drive ("C:"), whatever the platform.
bool IsRelative(const QString& path);
// An absolute path as it stands (separators made '/'); "" gives ExeFolder(); a relative one, less a leading
// ".\" or "./", behind ExeFolder().
QString AbsolutePath(const QString& path);
// The same with `folder` in place of the program's folder.
QString AbsolutePathFrom(const QString& folder, const QString& path);
// The path of `to` relative to the folder `fromFolder` ("./name", "../x/name"); nothing when the two share no
// root (another drive).
std::optional<QString> RelativePath(const QString& fromFolder, const QString& to);

enum class KnownFolderId { LocalAppData };
// The user's folder of that kind ("" when the system has none).
QString KnownFolder(KnownFolderId id);

// Creates every missing folder of the path; a folder that exists counts as made. False on "".
bool CreateFolders(const QString& path);
// Deletes the folder with everything in it; false if the folder is there afterwards or was never a folder.
bool DeleteFolder(const QString& path);
bool FileExists(const QString& path);
bool FolderExists(const QString& path);
// True if the file is gone afterwards: deleted now, or never there.
bool DeleteFileQuiet(const QString& path);
// True when both paths lead to one existing file: the same path spelled another way, or through a link.
bool IsSameFile(const QString& a, const QString& b);

} // namespace zunbrix
