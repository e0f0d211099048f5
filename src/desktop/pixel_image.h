#pragma once

#include <QImage>

#include "platform/pictures.h"

namespace kvt {

// A picture of points as one of the toolkit (RGB32).
QImage ImageOf(const Pixels& picture);

}  // namespace kvt
