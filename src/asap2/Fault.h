#pragma once

#include "base/Place.h"

#include <stdexcept>
#include <string>

namespace tavo {

/// What ends the reading of a description: the text says what is wrong at the place.
class Fault : public std::runtime_error
{
public:
    Fault(Place place, const std::string& text) : std::runtime_error(text), place_(place) {}

    Place place() const { return place_; }

private:
    Place place_;
};

/// A description that can't be opened; the number is the system's.
class OpenFailure : public std::runtime_error
{
public:
    explicit OpenFailure(int number) : std::runtime_error("can't be opened"), number_(number) {}

    int number() const { return number_; }

private:
    int number_;
};

} // namespace tavo
