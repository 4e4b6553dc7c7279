#pragma once

#include "model/PhObject.h"

/// A model object by which a test sees when objects die.
class Probe : public tavo::PhObject
{
public:
    explicit Probe(const char* name = nullptr) : PhObject(0)
    {
        setName(name);
        ++alive;
    }
    ~Probe() override { --alive; }

    static inline int alive = 0;
};
