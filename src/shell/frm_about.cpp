#include "shell/frm_about.h"

#include <QVBoxLayout>

#include "persistence/version.h"

namespace halvorne {

QString VersionCaption(int major, int minor) {
  const QString zero = minor < 10 ? QStringLiteral("0") : QString();
  return QStringLiteral("Version %1.%2%3 for").arg(major).arg(zero).arg(minor);
}

frmAbout::frmAbout(QWidget* parent)
    : ModalDialog("frmAbout", QStringLiteral("About Halvorne"), parent) {
  auto* const outer = new QVBoxLayout(this);
  outer->setContentsMargins(40, 24, 40, 20);
  Label1 = Named(new QLabel(QStringLiteral("Halvorne")), "Label1");
  Label2 = Named(new QLabel, "Label2");
  Label3 = Named(new QLabel(QStringLiteral("Windows XP, VISTA and Windows 7")), "Label3");
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * 2);
  Label1->setFont(large);
  for (QLabel* label : {Label1, Label2, Label3}) {
    label->setAlignment(Qt::AlignCenter);
    outer->addWidget(label);
  }
  outer->addSpacing(12);
  cmdAbout = Named(new QPushButton(QStringLiteral("OK")), "cmdAbout");
  cmdAbout->setDefault(true);
  outer->addWidget(cmdAbout, 0, Qt::AlignCenter);
  connect(cmdAbout, &QPushButton::clicked, this, &frmAbout::cmdAbout_Click);
  Form_Load();
}

void frmAbout::Form_Load() try {
  Centre();
  Label2->setText(VersionCaption(kVersionMajor, kVersionMinor));
} catch (...) {
  ReportFailure("Form_Load", "frmAbout");
}

void frmAbout::cmdAbout_Click() try { Unload(); } catch (...) {
  ReportFailure("cmdAbout_Click", "frmAbout");
}

}  // namespace halvorne
