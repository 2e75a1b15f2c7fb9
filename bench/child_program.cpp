#include "child_program.h"

#include <QProcess>

namespace halvorne::bench {

QByteArrayList WordsOf(const QString& program, const QStringList& arguments,
                       const QProcessEnvironment& environment) {
  constexpr int patience = 60'000;  // ms
  QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
  all.insert(environment);
  all.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
  QProcess process;
  process.setProcessEnvironment(all);
  process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process.start(program, arguments);
  if (!process.waitForFinished(patience)) {
    process.kill();
    process.waitForFinished();
  }
  return process.readAllStandardOutput().simplified().split(' ');
}

}  // namespace halvorne::bench
