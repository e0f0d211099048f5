#pragma once

#include <vector>

namespace kvt::iso {

// A point of the working plane: X and Y on the mill, Z and X as a radius on a lathe, so that an angle grows against
// the clock.
struct Point {
    double A = 0;
    double B = 0;
};

struct Arc {
    Point Start, End, Center;
    bool Clockwise = true;
};

// The centre of an arc that is given by its radius; a negative one takes the longer way. False where the ends are
// the same or farther apart than the circle is wide.
bool CenterFromRadius(Point start, Point end, double radius, bool clockwise, Point& center);

// The ends of the pieces of an arc that lie in one quadrant each; the last one is the end of the arc. An arc whose
// ends are the same is a full circle. Pieces shorter than least are left to their neighbours.
std::vector<Point> SplitAtQuadrants(const Arc& arc, double least);

double Distance(Point one, Point other);

}  // namespace kvt::iso
