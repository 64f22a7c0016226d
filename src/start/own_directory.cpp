// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "start/own_directory.h"

#include "base/files.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace soran {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcOwn, "soran.start")

constexpr const char* markName = ".soran";
constexpr QStringView scratchFolders[] = {u"data", u"help"};

QString markOf(const QString& folder) {
  return folder + u'/' + QString::fromLatin1(markName);
}

constexpr const char* markText =
    "This folder belongs to SORAN, which empties its folders data and help at every exit.\n";

bool writeMark(const QString& folder) {
  return writeWhole(markOf(folder), markText, true);
}

/// Such a folder is made at each start, and one in a marked directory is known without a mark as long as it
/// holds nothing else: this one does not wait for the disk.
bool writeScratchMark(const QString& folder) {
  QFile mark(markOf(folder));
  if (!mark.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner))
    return false;
  if (mark.write(markText) == qint64(qstrlen(markText)) && mark.flush())
    return true;
  mark.remove();
  return false;
}

/// A folder that is open, not through a link.
class OpenFolder {
 public:
  explicit OpenFolder(const QString& path)
      : number_(
            ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)) {}
  ~OpenFolder() {
    if (number_ >= 0)
      ::close(number_);
  }
  OpenFolder(const OpenFolder&) = delete;
  OpenFolder& operator=(const OpenFolder&) = delete;

  bool isOpen() const { return number_ >= 0; }
  /// A plain file stands under that name.
  bool holds(const QByteArray& name) const {
    if (!isOpen())
      return false;
    const int file = ::openat(number_, name.constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
    struct stat status {};
    const bool found = file >= 0 && ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    if (file >= 0)
      ::close(file);
    return found;
  }
  void remove(const QByteArray& name) const {
    if (holds(name))
      ::unlinkat(number_, name.constData(), 0);
  }

 private:
  int number_;
};

/// The names of the files that a run of the program leaves in its folders: of `data`, and the pages of
/// `help`.
bool isOwnFile(const QString& name) {
  constexpr QStringView files[] = {u"sequence.dat", u"figure.dat",         u"version.dat",
                                   u"soran$.mdb",   u"soran$.mdb.fetched", u"soran$.mdb-journal",
                                   u".soran"};
  constexpr QStringView pages[] = {u"htm", u"html", u"css", u"png", u"svg"};
  const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
  const auto isOfPage = [&](QChar c) {
    return isDigit(c) || (c >= u'a' && c <= u'z') || c == u'_' || c == u'-';
  };
  if (std::ranges::find(files, QStringView(name)) != std::end(files))
    return true;
  const qsizetype dot = name.indexOf(u'.');
  const QStringView stem = QStringView(name).first(std::max<qsizetype>(dot, 0));
  const QStringView ending = QStringView(name).sliced(dot + 1);
  if (ending == u"dat")
    return stem.size() == 2 && std::ranges::all_of(stem, isDigit);
  return !stem.isEmpty() && std::ranges::all_of(stem, isOfPage) &&
         std::ranges::find(pages, ending) != std::end(pages);
}

QStringList namesIn(const QString& folder) {
  return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

/// Whether the program may empty the folder. `known` is true where its directory was marked by an earlier
/// release.
bool isOwnFolder(const QString& path, bool known) {
  const OpenFolder folder(path);
  if (!folder.isOpen())
    return false;
  if (folder.holds(markName))
    return true;
  const QStringList names = namesIn(path);
  return names.isEmpty() || (known && std::ranges::all_of(names, isOwnFile));
}

} // namespace

bool OwnDirectory::make(const QString& folder) {
  const QString parent = QFileInfo(QDir::cleanPath(folder)).absolutePath();
  if (QFileInfo(folder).isDir())
    return true;
  if (parent != folder && !make(parent))
    return false;
  if (!makePrivateDirectory(folder))
    return false;
  madeFolders_.append(folder);
  return true;
}

void OwnDirectory::mark(const QString& folder) {
  const QString file = markOf(folder);
  if (!nameIsTaken(file) && (folder == directory_ ? writeMark(folder) : writeScratchMark(folder)))
    madeMarks_.append(file);
}

OwnDirectory::Result OwnDirectory::claim() {
  // The directory itself may be reached through a link: the user named it.
  const bool known = replaceable(markOf(directory_)) == FileFault::None && nameIsTaken(markOf(directory_));
  for (const QStringView name : scratchFolders) {
    const QString folder = directory_ + u'/' + name;
    if (nameIsTaken(folder) && !isOwnFolder(folder, known)) {
      foreign_ = folder;
      return Result::Foreign;
    }
  }
  if (!make(directory_))
    return Result::Impossible;
  mark(directory_);
  for (const QStringView name : {u"sound", u"data"}) {
    if (!make(directory_ + u'/' + name))
      qCWarning(lcOwn) << "passed over: making the folder" << name;
  }
  for (const QStringView name : scratchFolders) {
    const QString folder = directory_ + u'/' + name;
    if (QFileInfo(folder).isDir())
      mark(folder);
  }
  return Result::Claimed;
}

void OwnDirectory::withdraw() {
  for (const QString& file : std::as_const(madeMarks_))
    QFile::remove(file);
  while (!madeFolders_.isEmpty())
    QDir().rmdir(madeFolders_.takeLast());
}

bool makeScratchFolder(const QString& folder) {
  return QFileInfo(folder).isDir() || (makePrivateDirectory(folder) && writeScratchMark(folder));
}

void removeScratchFolder(const QString& directory, const QString& name) {
  const QString path = directory + u'/' + name;
  {
    const OpenFolder folder(path);
    if (!folder.isOpen() || !folder.holds(markName))
      return;
    QStringList names = namesIn(path);
    names.removeIf([](const QString& file) { return file.startsWith(u'.') || !isOwnFile(file); });
    for (const QString& file : std::as_const(names))
      folder.remove(QFile::encodeName(file));
    // The mark goes last, and stays with what is not ours to delete.
    if (namesIn(path) == QStringList{QString::fromLatin1(markName)})
      folder.remove(markName);
  }
  QDir().rmdir(path);
}

} // namespace soran
