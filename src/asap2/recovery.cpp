// How the reading goes on after a fault, for those who want to know all of them.

#include "asap2/Parser.h"

namespace tavo {

namespace {

/// More are the consequences of others.
constexpr unsigned mostFaults = 100;

} // namespace

bool Parser::parseAll(const FaultSink& sink)
{
    faultSink_ = sink;
    scanner_.setIncludeSink([this](const Fault& fault) { keepFault(fault); });
    try {
        parse();
    } catch (const Fault& fault) {
        // Of what is around a module without an end, nothing else can be expected.
        if (!isCutShort_)
            faultSink_(Severity::Error, fault.place(), fault.what());
        return false;
    }
    return faultCount_ == 0;
}

/// Reports a fault that the reading gets over. Throws it if there are too many.
void Parser::keepFault(const Fault& fault)
{
    if (faultCount_ >= mostFaults)
        throw Fault(fault);
    ++faultCount_;
    lastFault_ = fault.place();
    faultSink_(Severity::Error, fault.place(), fault.what());
}

/// The reading goes on here.
void Parser::reportPassedOver(Place place)
{
    const std::string line = std::to_string(lastFault_.line);
    faultSink_(Severity::Note, place,
               place.file == lastFault_.file
                   ? joined({"What follows the error in line ", line, " is passed over up to here"})
                   : std::string("What follows the error is passed over up to here"));
}

/// After a fault, with anything current: reads the next block that only a module has. False if the
/// module is over.
bool Parser::resumeModule()
{
    bool isAfterEnd = true;
    unsigned passedOver = 0; // tokens, of which the first is the one with the fault
    for (;; ++passedOver) {
        switch (scanner_.token()) {
        case Token::FileEnd:
            isCutShort_ = true;
            faultSink_(Severity::Note, lastFault_, "The rest of the file is passed over");
            return false;
        case Token::Begin: {
            const Mark begin(scanner_);
            const std::string_view word = beginBlock(begin);
            isAfterEnd = false;
            // An IF_DATA may belong to the block with the fault.
            if (findBlock(Block::Module, word).option == Option::Unknown || word == "IF_DATA")
                break;
            if (passedOver > 1)
                reportPassedOver(begin.place());
            parseNamedBlock(Block::Module, begin, word, [this](Option option, const Mark& mark) {
                parseModuleBlock(option, mark);
            });
            return true;
        }
        case Token::End:
            isAfterEnd = true;
            scanner_.advance();
            break;
        case Token::Word:
        case Token::Text:
            if (isAfterEnd && scanner_.isWord("MODULE")) {
                scanner_.advance();
                return false;
            }
            isAfterEnd = false;
            scanner_.advance();
            break;
        }
    }
}

} // namespace tavo
