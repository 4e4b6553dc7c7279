#include "arguments.h"

#include "Suggestion.h"
#include "optionTable.h"
#include "platform.h"

#include <string_view>
#include <utility>

namespace tavo {

namespace {

/// An option as it was given.
struct Given
{
    std::string spelling; ///< "--jobs" or "-j"
    std::string name;     ///< Without the dashes; of a short form that nobody knows, the letter.
    std::string value;
    bool hasValue = false;
};

class ArgumentReader
{
public:
    ArgumentReader(const std::vector<std::string>& words, Request& request)
        : words_(words), request_(request)
    {
    }

    void read();

private:
    static const ProgramOption* anyRow(std::string_view name);
    static const ProgramOption* anyRow(char letter);
    bool isOption(const std::string& word) const;
    void split();
    void takeLong(const std::string& word);
    void takeLetters(const std::string& word);
    void takeNextAsValue(Given& given, const ProgramOption* row);
    bool has(std::string_view name) const;
    void findCommand();
    void apply(const Given& given);
    [[noreturn]] void failAtOption(const Given& given) const;
    /// The command, or all of them if none is named.
    CommandSet commandSet() const
    {
        return request_.command ? request_.command->bit : ~CommandSet{0};
    }
    std::string meantBy(const Given& given) const;
    [[noreturn]] void fail(const std::string& reason, const std::string& hint = "") const;

    const std::vector<std::string>& words_;
    Request& request_;
    std::size_t next_ = 0;
    std::vector<Given> given_;
    std::vector<std::string> plain_; ///< What is no option.
};

/// A row of this name, whatever command it is for: all take a value, or none.
const ProgramOption* ArgumentReader::anyRow(std::string_view name)
{
    for (const ProgramOption& row : optionRows())
        if (row.name == name)
            return &row;
    return nullptr;
}

const ProgramOption* ArgumentReader::anyRow(char letter)
{
    for (const ProgramOption& row : optionRows())
        if (row.letter == letter)
            return &row;
    return nullptr;
}

/// Tells options from the other words, whatever they mean.
void ArgumentReader::split()
{
    while (next_ < words_.size()) {
        const std::string& word = words_[next_++];
        if (word == "--") {
            plain_.insert(plain_.end(), words_.begin() + static_cast<std::ptrdiff_t>(next_),
                          words_.end());
            return;
        }
        if (word.starts_with("--"))
            takeLong(word);
        else if (word.size() > 1 && word.front() == '-')
            takeLetters(word);
        else
            plain_.push_back(word);
    }
}

void ArgumentReader::takeLong(const std::string& word)
{
    const std::size_t equals = word.find('=');
    Given given;
    given.spelling = word.substr(0, equals);
    given.name = given.spelling.substr(2);
    given.hasValue = equals != std::string::npos;
    if (given.hasValue)
        given.value = word.substr(equals + 1);
    else
        takeNextAsValue(given, anyRow(given.name));
    given_.push_back(std::move(given));
}

/// Letters that take nothing may stand together; what follows one that takes a value is the value.
void ArgumentReader::takeLetters(const std::string& word)
{
    for (std::size_t i = 1; i < word.size(); ++i) {
        const ProgramOption* row = word[i] != 0 ? anyRow(word[i]) : nullptr;
        Given given;
        given.spelling = std::string("-") + word[i];
        given.name = row ? row->name : word.substr(i, 1);
        if (word[i] == 'V')
            given.name = "version";
        given.hasValue = row && row->value && i + 1 < word.size();
        if (given.hasValue) {
            given.value = word.substr(i + (word[i + 1] == '=' ? 2 : 1));
            i = word.size();
        } else {
            takeNextAsValue(given, row);
        }
        given_.push_back(std::move(given));
    }
}

void ArgumentReader::takeNextAsValue(Given& given, const ProgramOption* row)
{
    given.hasValue = row && row->value && next_ < words_.size() && !isOption(words_[next_]);
    if (given.hasValue)
        given.value = words_[next_++];
}

/// True for a word that is meant as an option, so that it isn't taken for the value of another.
bool ArgumentReader::isOption(const std::string& word) const
{
    const std::string name = word.substr(0, word.find('='));
    return name.starts_with("--") && (name.size() == 2 || anyRow(std::string_view(name).substr(2)));
}

bool ArgumentReader::has(std::string_view name) const
{
    for (const Given& given : given_)
        if (given.name == name && given.name.size() > 1)
            return true;
    return false;
}

void ArgumentReader::read()
{
    split();
    for (const Given& given : given_)
        if (given.name == "color" && given.hasValue)
            apply(given);
    findCommand();
    if (request_.kind != Request::Kind::Run)
        return;
    if (!request_.command)
        fail("A command is required");
    for (const Given& given : given_) {
        apply(given);
        const std::string option = "--" + given.name;
        if (given.name != "jobs" && given.name != "output-dir")
            request_.options.words.push_back(given.hasValue ? option + "=" + given.value : option);
    }
    plain_ = filesOf(std::move(plain_));
    if (plain_.empty())
        fail("A description is required");
    if (plain_.size() > request_.command->mostFiles)
        fail("'" + plain_[request_.command->mostFiles] + "' is one argument too many");
    request_.options.files = std::move(plain_);
}

/// The command is the first plain word, which goes.
void ArgumentReader::findCommand()
{
    if (has("help"))
        request_.kind = Request::Kind::Help;
    else if (has("version"))
        request_.kind = Request::Kind::Version;
    if (!plain_.empty() && plain_.front() == "help") {
        request_.kind = Request::Kind::Help;
        plain_.erase(plain_.begin());
    }
    if (plain_.empty())
        return;
    const std::string word = plain_.front();
    plain_.erase(plain_.begin());
    request_.command = tavo::findCommand(word);
    if (request_.command)
        return;
    Suggestion suggestion(word);
    suggestion.consider("help");
    for (const CommandRow& row : commandRows())
        suggestion.consider(row.name);
    fail("There is no command '" + word + "'",
         suggestion.isFound() ? "did you mean 'tavo " + suggestion.best() + "'?" : "");
}

void ArgumentReader::apply(const Given& given)
{
    // The colors are chosen even if there is no command.
    const CommandSet command = commandSet();
    for (const ProgramOption& row : optionRows()) {
        if (row.name != given.name || (row.commands & command) != command)
            continue;
        if (given.hasValue && !row.value)
            fail(given.spelling + " takes no value");
        if (row.value && given.value.empty())
            fail(given.spelling + " needs a value: " + (row.choices ? row.help : row.value));
        if (row.choices) {
            Suggestion suggestion(given.value);
            bool isKnown = false;
            forEachChoice(row.choices, [&](std::string_view choice) {
                isKnown |= choice == given.value;
                suggestion.consider(choice);
            });
            if (!isKnown)
                fail(given.spelling + ": '" + given.value + "' is not " + row.help,
                     suggestion.isFound() ? "did you mean '" + suggestion.best() + "'?" : "");
        }
        try {
            row.apply(request_.options, given.value);
        } catch (const BadValue& bad) {
            fail(row.value ? given.spelling + ": " + bad.what() : bad.what());
        }
        return;
    }
    failAtOption(given);
}

/// The option isn't one of the command.
void ArgumentReader::failAtOption(const Given& given) const
{
    const CommandRow* const command = request_.command;
    const std::string reason = given.spelling + " is no option of 'tavo" +
                               (command ? std::string(" ") + command->name : "") + "'";
    const bool isOutput = given.name == "o" || given.name == "output";
    if (isOutput && command &&
        std::string_view(command->usage).find("OUTPUT") != std::string_view::npos)
        fail(reason, "the output is the argument after the input, without an option");
    const std::string meant = meantBy(given);
    fail(reason, meant.empty() ? "" : "did you mean '" + meant + "'?");
}

/// The option of the command that was meant, or "".
std::string ArgumentReader::meantBy(const Given& given) const
{
    Suggestion suggestion(given.name);
    std::string value;
    for (const ProgramOption& row : optionRows()) {
        if ((row.commands & commandSet()) == 0)
            continue;
        suggestion.consider(row.name);
        if (row.choices) // "--json" for "--format json"
            forEachChoice(row.choices, [&](std::string_view choice) {
                if (choice == given.name)
                    value = std::string("--") + row.name + " " + std::string(choice);
            });
    }
    if (!value.empty())
        return value;
    return suggestion.isFound() ? "--" + suggestion.best() : "";
}

void ArgumentReader::fail(const std::string& reason, const std::string& hint) const
{
    const std::string command =
        request_.command ? std::string("tavo ") + request_.command->name : "tavo";
    throw Failure(ExitCode::Usage, reason,
                  hint.empty() ? "'" + command + " --help' shows what there is" : hint);
}

} // namespace

void readArguments(const std::vector<std::string>& words, Request& request)
{
    ArgumentReader(words, request).read();
}

} // namespace tavo
