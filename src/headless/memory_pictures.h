#pragma once

#include "platform/pictures.h"

namespace kvt {

// Paints drawings without a toolkit: one point for 15 twips, strokes without smoothing.
class MemoryPictures : public PictureService {
public:
    Pixels Paint(const PictureBox& field, const FieldArea& area) override;
    // Not compressed.
    std::string PngOf(const Pixels& picture) override;
};

}  // namespace kvt
