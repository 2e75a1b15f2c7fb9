#pragma once

#include <QByteArrayList>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace halvorne::bench {

/// Runs a program of the bench's on the offscreen platform and returns the words that it prints;
/// none when it does not end in time.
/// @param arguments    its command line
/// @param environment  settings beside the bench's own
QByteArrayList WordsOf(const QString& program, const QStringList& arguments,
                       const QProcessEnvironment& environment = {});

}  // namespace halvorne::bench
