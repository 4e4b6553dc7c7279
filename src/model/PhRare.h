#pragma once

#include <memory>

namespace tavo {

/// Fields that most objects of a class lack: they stand in a record of their own, which is made
/// when the first of them is set. (A class whose fields are in use as a rule has a record from its
/// constructor on instead, in a `std::unique_ptr`.)
template <class Record> class PhRare
{
public:
    /// False as long as there is no record.
    explicit operator bool() const { return record_ != nullptr; }
    Record* operator->() const { return record_.get(); }
    Record& operator*() const { return *record_; }
    /// The record, made if it is missing.
    Record& made()
    {
        if (!record_)
            record_ = std::make_unique<Record>();
        return *record_;
    }

private:
    std::unique_ptr<Record> record_;
};

} // namespace tavo
