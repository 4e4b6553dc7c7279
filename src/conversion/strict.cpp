// The conversion of the strict library.

#include "a2l/PhA2l.h"
#include "conversion/Conversion.h"
#include "daq/writer.h"
#include "topology/PhRoot.h"

#include <optional>

namespace tavo {

namespace {

class StrictConversion : public Conversion
{
public:
    explicit StrictConversion(const char* inputPath) : reader_(inputPath) {}

    int read() override
    {
        reader_.setVerbose(false);
        return reader_.readFile(&root_.emplace());
    }

    bool write(const char* outputPath) override
    {
        root_->resolve();
        return writeDaqFile(&*root_, outputPath) == 0;
    }

private:
    std::optional<PhRoot> root_;
    PhA2l reader_; // released before the root
};

} // namespace

std::unique_ptr<Conversion> makeConversion(const char* inputPath)
{
    return std::make_unique<StrictConversion>(inputPath);
}

} // namespace tavo
