#include "support/series.h"

#include "support/conversion.h"

#include <sstream>

std::vector<SeriesText> seriesTexts(const std::string& bytes)
{
    const std::string mark = "\n==== ";
    std::size_t title = bytes.find(mark);
    std::vector<std::string> endings;
    std::istringstream head(bytes.substr(0, title));
    for (std::string line; std::getline(head, line);)
        if (line.starts_with("++++ "))
            endings.push_back(line.substr(5));

    std::vector<SeriesText> texts;
    while (title != std::string::npos) {
        const std::size_t body = bytes.find('\n', title + 1);
        const std::size_t next = bytes.find(mark, body);
        const std::size_t end = next == std::string::npos ? bytes.size() - 1 : next;
        SeriesText& text = texts.emplace_back();
        text.title = bytes.substr(title + mark.size(), body - title - mark.size());
        text.body = body < end ? bytes.substr(body + 1, end - body - 1) : "";
        text.endings = endings;
        title = next;
    }
    return texts;
}

std::string wideDescription(const std::string& body)
{
    return body.find("PROJECT") == std::string::npos ? inModule(body) : body;
}
