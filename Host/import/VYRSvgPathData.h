#pragma once

#include <string>

class VYRPrtPathElt;

// Turns SVG path data into segments of a path element, all in absolute
// coordinates: H and V become line segments, S and T curves with their
// reflected control points, and arcs carry both their end-point form and
// their centre form (angles in degrees, radii scaled up when too small).
// Parsing stops at the first error, keeping the segments before it, as SVG
// renders a path up to its first error. Returns false when it stopped early.
namespace VYRSvgPathData {

bool Parse(const std::string& i_data, VYRPrtPathElt& io_path);

}  // namespace VYRSvgPathData
