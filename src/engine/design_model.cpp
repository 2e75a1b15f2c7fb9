#include "engine/design_model.h"

namespace halvorne {

Design design;
Curves curves;
Draft draft;

void InitPZLayer2() try {
  PiezoMaterial& neutral = design.PZMatl(2);
  neutral.Name = "None";
  neutral.Velocity = 2000;
  neutral.ShearVelocity = 1000;
  neutral.Density = 1000;
  neutral.Ks = 1;
  neutral.Kt = 0;
  neutral.TanDe = 0;
  neutral.TanDm = 0;
  neutral.Vendor = "None";
  neutral.DataSource = "None";
  design.PZThick(2) = 0;
  design.PZPolarity(2) = 1;
} catch (...) {
  ReportFailure("InitPZLayer2", "CALCS");
}

void PiezoLayers() try {
  const PiezoMaterial& rear = design.PZMatl(1);
  design.BackZ(0) = Finite(rear.Density * rear.Velocity);
  design.BackVel(0) = rear.Velocity;
  design.BackThick(0) = design.PZThick(1) / 2;
  design.BackArea(0) = 1;
  if (design.NoPiezo != 1) {
    const PiezoMaterial& front = design.PZMatl(2);
    design.FrontZ(0) = Finite(front.Density * front.Velocity);
    design.FrontVel(0) = front.Velocity;
    design.FrontThick(0) = design.PZThick(2) / 2;
    design.FrontArea(0) = 1;
    return;
  }
  InitPZLayer2();
  design.FrontZ(0) = design.BackZ(0);
  design.FrontVel(0) = design.BackVel(0);
  design.FrontThick(0) = design.BackThick(0);
  design.FrontArea(0) = design.BackArea(0);
  design.PZConnect = 0;
  design.PZConnectName = "None";
} catch (...) {
  ReportFailure("PiezoLayers", "CALCS");
}

}  // namespace halvorne
