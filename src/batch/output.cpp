#include "batch/output.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryDir>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "batch/stops.h"

namespace halvorne::batch {
namespace {

QString NameOf(const std::string& file) {
  return QFile::decodeName(file.c_str());
}

[[noreturn]] void FailToWrite(const std::string& file, const std::string& why) {
  throw CommandFailed(file + " could not be written: " + why);
}

void WriteToStandardOutput(std::string_view bytes) {
  const std::size_t written = std::fwrite(bytes.data(), 1, bytes.size(), stdout);
  if (written != bytes.size() || std::fflush(stdout) != 0) {
    throw CommandFailed("standard output could not be written");
  }
}

/// A device or a pipe is written to; it must not be replaced by a file.
bool IsDevice(const std::string& file) {
  const QFileInfo info(NameOf(file));
  return info.exists() && !info.isFile() && !info.isDir();
}

template <class File>
void WriteAll(File& out, const std::string& name, std::string_view bytes) {
  const auto size = static_cast<qint64>(bytes.size());
  if (!out.open(QIODevice::WriteOnly)) {
    FailToWrite(name, out.errorString().toStdString());
  }
  if (out.write(bytes.data(), size) != size || !out.flush()) {
    FailToWrite(name,
                std::strerror(errno));  // the toolkit has no words for a write that fell short
  }
}

void WriteFile(const std::string& file, std::string_view bytes) {
  if (IsDevice(file)) {
    QFile out(NameOf(file));
    WriteAll(out, file, bytes);
    return;
  }
  QSaveFile out(NameOf(file));
  out.setDirectWriteFallback(true);  // a folder may be closed to new files and the file be open
  WriteAll(out, file, bytes);
  if (!out.commit()) {
    FailToWrite(file, out.errorString().toStdString());
  }
}

QByteArray ReadBack(const QString& file) {
  QFile in(file);
  if (!in.open(QIODevice::ReadOnly)) {
    throw CommandFailed(file.toStdString() + " could not be read back");
  }
  return in.readAll();
}

}  // namespace

void WriteOutput(const Session& session, std::string_view bytes) {
  const Request& request = session.request;
  if (request.out.empty()) {
    WriteToStandardOutput(bytes);
    return;
  }
  const QString input = QFileInfo(NameOf(request.in)).canonicalFilePath();
  if (!input.isEmpty() && input == QFileInfo(NameOf(request.out)).canonicalFilePath()) {
    throw WrongCommandLine("-o: " + request.out + " is the design itself");
  }
  WriteFile(request.out, bytes);
}

void WriteThrough(const Session& session, const std::function<void(const std::string&)>& writer) {
  const Request& request = session.request;
  if (!request.force && QFileInfo::exists(NameOf(request.out))) {
    writer(request.out);
    throw CommandFailed(request.out + " exists and is left alone; --force overwrites it");
  }
  const QTemporaryDir folder;
  if (!folder.isValid()) {
    throw CommandFailed("no temporary file could be made: " + folder.errorString().toStdString());
  }
  const QString draft = folder.filePath("output");
  const int failuresBefore = session.messages.FailureCount();
  writer(QFile::encodeName(draft).toStdString());
  if (session.messages.FailureCount() > failuresBefore) {
    throw CommandFailed(request.out + " was not written");
  }
  const QByteArray bytes = ReadBack(draft);
  WriteFile(request.out, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

}  // namespace halvorne::batch
