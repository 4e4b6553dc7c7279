#pragma once

#include "model/PhObject.h"

namespace tavo {

/// The text of a physical unit. It has no numeric content, and its `name` stays null.
class PhUnit : public PhObject
{
public:
    PhUnit() : PhObject(PhClassUnit) {}

    /// The unit as the COMPU_METHOD gives it; null until set. An empty text is set, too.
    const PhString& label() const { return label_; }
    void setLabel(const PhString& label) { label_ = label; }

private:
    PhString label_;
};

} // namespace tavo
