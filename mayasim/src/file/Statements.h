#pragma once
// Maya ASCII files are MEL, one statement after another. Loading runs them
// one at a time so that a failed statement is reported with its line and
// loading goes on with the next, as Maya does.
#include <string>
#include <vector>

namespace mayasim::file {

struct Statement
{
    std::string text; // without the closing ';'
    int line = 0;     // where the statement starts, counting from 1
};

// Splits at each ';' outside strings, comments and braces. Comments are
// dropped; text after the last ';' is a statement of its own.
std::vector<Statement> splitStatements(const std::string& text);

} // namespace mayasim::file
