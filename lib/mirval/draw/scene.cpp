#include "draw/scene.h"

void Path::move(Pt p) {
  ops.push_back(SegOp::Move);
  pts.push_back(p);
}

void Path::line(Pt p) {
  ops.push_back(SegOp::Line);
  pts.push_back(p);
}

void Path::curve(Pt c1, Pt c2, Pt p) {
  ops.push_back(SegOp::Curve);
  pts.insert(pts.end(), {c1, c2, p});
}

void Path::close() { ops.push_back(SegOp::Close); }
