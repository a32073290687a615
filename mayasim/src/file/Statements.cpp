#include "file/Statements.h"

namespace mayasim::file {

std::vector<Statement> splitStatements(const std::string& text)
{
    std::vector<Statement> statements;
    Statement current;
    int line = 1;
    int depth = 0;
    auto finish = [&]() {
        if (current.text.find_first_not_of(" \t\r\n") != std::string::npos)
            statements.push_back(current);
        current = Statement{};
    };
    auto append = [&](char c) {
        if (current.text.empty() && (c == ' ' || c == '\t' || c == '\r' || c == '\n'))
            return; // statements start at their first word
        if (current.text.empty())
            current.line = line;
        current.text += c;
    };

    for (size_t i = 0; i < text.size(); ++i)
    {
        const char c = text[i];
        const char next = i + 1 < text.size() ? text[i + 1] : '\0';
        if (c == '"')
        {
            append(c);
            for (++i; i < text.size() && text[i] != '"'; ++i)
            {
                if (text[i] == '\\' && i + 1 < text.size())
                    current.text += text[i++];
                if (text[i] == '\n')
                    ++line;
                current.text += text[i];
            }
            if (i < text.size())
                current.text += '"';
        }
        else if (c == '/' && next == '/')
        {
            while (i < text.size() && text[i] != '\n')
                ++i;
            --i; // the newline is counted below
        }
        else if (c == '/' && next == '*')
        {
            for (i += 2; i < text.size() && !(text[i] == '*' && i + 1 < text.size() && text[i + 1] == '/'); ++i)
                if (text[i] == '\n')
                    ++line;
            ++i;
        }
        else if (c == ';' && depth == 0)
        {
            finish();
        }
        else
        {
            if (c == '{')
                ++depth;
            else if (c == '}' && depth > 0)
                --depth;
            else if (c == '\n')
                ++line;
            append(c);
        }
    }
    finish();
    return statements;
}

} // namespace mayasim::file
