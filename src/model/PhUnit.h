#pragma once

#include "model/PhObject.h"

namespace tavo {

struct PhUnitPrivate;

/// The text of a physical unit. It has no numeric content, and its `name` stays null.
class PhUnit : public PhObject
{
public:
    PhUnit();
    ~PhUnit() override;

    /// The unit as the COMPU_METHOD gives it; null until set. An empty text is set, too.
    const PhString& label() const;
    void setLabel(const PhString& label);

private:
    std::unique_ptr<PhUnitPrivate> d;
};

} // namespace tavo
