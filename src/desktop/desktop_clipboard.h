#pragma once

#include "platform/services.h"

namespace kvt {

class DesktopClipboard : public ClipboardService {
public:
    std::string GetText() override;
    void Clear() override;
    void SetText(std::string_view text) override;
    void SetPicture(const Pixels& picture) override;
};

}  // namespace kvt
