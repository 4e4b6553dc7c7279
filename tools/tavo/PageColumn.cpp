#include "PageColumn.h"

#include "daq/ConfigurationStream.h"

#include <charconv>
#include <cmath>

namespace tavo {

void putSafely(ConfigurationStream& stream, std::string_view json)
{
    for (std::size_t end = json.find('<'); end != std::string_view::npos; end = json.find('<')) {
        stream.put(json.substr(0, end));
        stream.put("\\u003c");
        json.remove_prefix(end + 1);
    }
    stream.put(json);
}

PageColumn::PageColumn(ConfigurationStream& stream, const char* name) : stream_(stream)
{
    stream_.put(",\n\"");
    stream_.put(name);
    stream_.put("\":[");
}

PageColumn::~PageColumn()
{
    putRepeats();
    stream_.put("]");
}

void PageColumn::put(std::int64_t number)
{
    char digits[24];
    add({digits, std::to_chars(digits, digits + sizeof digits, number).ptr});
}

void PageColumn::put(std::string_view text)
{
    json_.clear();
    json_.value(text);
    add(json_.json());
}

void PageColumn::putText(std::string_view text)
{
    const std::uint32_t known = texts_.size();
    if (known == 0 || text != lastText_)
        lastNumber_ = texts_.number(text);
    lastText_ = text;
    if (lastNumber_ == known)
        put(text);
    else
        put(std::int64_t{lastNumber_});
}

void PageColumn::putText(const std::optional<std::string_view>& text)
{
    if (text)
        putText(*text);
    else
        putNone();
}

void PageColumn::putNumber(double number)
{
    const bool isInteger = std::fabs(number) < 1e15 && number == std::trunc(number) &&
                           !(number == 0.0 && std::signbit(number));
    if (isInteger) {
        put(static_cast<std::int64_t>(number));
    } else if (std::isfinite(number)) {
        json_.clear();
        json_.value(number);
        add(json_.json());
    } else {
        put(std::string_view(std::isnan(number) ? "nan" : number > 0 ? "inf" : "-inf"));
    }
}

void PageColumn::add(std::string_view item)
{
    if (item == last_) {
        ++repeats_;
        return;
    }
    putRepeats();
    last_ = item;
    putItem(last_);
}

void PageColumn::putRepeats()
{
    if (repeats_ > 2)
        putItem(std::string("[").append(std::to_string(repeats_)).append("]"));
    else
        for (; repeats_ > 0; --repeats_)
            putItem(last_);
    repeats_ = 0;
}

void PageColumn::putItem(std::string_view item)
{
    if (!isFirst_)
        stream_.put(",");
    putSafely(stream_, item);
    isFirst_ = false;
}

} // namespace tavo
