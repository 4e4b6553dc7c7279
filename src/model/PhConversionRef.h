#pragma once

#include "model/PhTextRef.h"

namespace tavo {

class PhConversion;

/// A reference to a conversion, which may be known by name only. Who asks for the object then gets
/// a placeholder, which the reference keeps. The mark of a name says that it was reported.
class PhConversionRef : public PhTextRef<PhConversion>
{
public:
    using PhTextRef::operator=;

    /// The conversion or its placeholder, which is made here and can run out of memory; null if
    /// there is none.
    PhConversion* conversion() const;
};

} // namespace tavo
