#include "engine/MelParser.h"

#include <cctype>
#include <cstdlib>

namespace mayasim::mel {

namespace {

bool isIdentifierStart(char c)
{
    return std::isalpha(static_cast<unsigned char>(c)) || c == '_';
}

bool isIdentifierChar(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

bool isSpace(char c)
{
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

// Node, plug and path names never hold these, so they end an unquoted word.
bool endsBareWord(char c)
{
    return isSpace(c) || c == ';' || c == '`' || c == '}' || c == '"' || c == '(' || c == ')';
}

bool isTypeName(const std::string& word)
{
    return word == "string" || word == "int" || word == "float";
}

MelValue::Type typeOf(const std::string& word)
{
    if (word == "int")
        return MelValue::Type::Int;
    if (word == "float")
        return MelValue::Type::Float;
    return MelValue::Type::String;
}

} // namespace

MelValue::Type arrayTypeOf(MelValue::Type element)
{
    switch (element) {
    case MelValue::Type::Int: return MelValue::Type::IntArray;
    case MelValue::Type::Float: return MelValue::Type::FloatArray;
    default: return MelValue::Type::StringArray;
    }
}

namespace {

class Parser
{
public:
    Parser(const std::string& source, int firstLine) : fSource(source), fLine(firstLine) {}

    std::vector<StatementPtr> script()
    {
        std::vector<StatementPtr> statements;
        for (skipSpace(); !atEnd(); skipSpace())
            statements.push_back(statement());
        return statements;
    }

private:
    const std::string& fSource;
    size_t fPos = 0;
    int fLine = 1;
    int fColumn = 1;
    int fDepth = 0;
    int fLoops = 0;                   // loops around the cursor, for break and continue
    const Procedure* fProc = nullptr; // the proc whose body is being read, for return

    // Statements and expressions nest through recursion, here and when they
    // run; deeper nesting than this is a syntax error rather than a stack
    // overflow (Maya's parser has a fixed stack too).
    static constexpr int kMaxNesting = 500;

    class Nesting
    {
    public:
        explicit Nesting(Parser& parser) : fParser(parser)
        {
            if (++fParser.fDepth > kMaxNesting)
                fParser.fail();
        }
        ~Nesting() { --fParser.fDepth; }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;

    private:
        Parser& fParser;
    };

    // --- characters --------------------------------------------------------------

    bool atEnd() const { return fPos >= fSource.size(); }
    char peek(size_t ahead = 0) const { return fPos + ahead < fSource.size() ? fSource[fPos + ahead] : '\0'; }
    Location here() const { return {fLine, fColumn}; }

    char advance()
    {
        const char c = fSource[fPos++];
        if (c == '\n') {
            ++fLine;
            fColumn = 1;
        } else {
            ++fColumn;
        }
        return c;
    }

    [[noreturn]] void fail(const std::string& message = {}) const
    {
        const size_t start = fSource.rfind('\n', fPos == 0 ? 0 : fPos - 1);
        const size_t from = start == std::string::npos || start >= fPos ? 0 : start + 1;
        const size_t end = fSource.find('\n', from);
        throw SyntaxError{here(), fSource.substr(from, end == std::string::npos ? std::string::npos : end - from),
                          message};
    }

    // A place to come back to when a lookahead fails.
    struct Mark
    {
        size_t pos;
        int line, column;
    };
    Mark mark() const { return {fPos, fLine, fColumn}; }
    void restore(const Mark& m)
    {
        fPos = m.pos;
        fLine = m.line;
        fColumn = m.column;
    }

    void skipSpace()
    {
        for (;;) {
            if (isSpace(peek())) {
                advance();
            } else if (peek() == '/' && peek(1) == '/') {
                while (!atEnd() && peek() != '\n')
                    advance();
            } else if (peek() == '/' && peek(1) == '*') {
                advance();
                advance();
                while (!atEnd() && !(peek() == '*' && peek(1) == '/'))
                    advance();
                if (atEnd())
                    fail();
                advance();
                advance();
            } else {
                return;
            }
        }
    }

    bool accept(const char* token)
    {
        skipSpace();
        size_t length = 0;
        while (token[length]) {
            if (peek(length) != token[length])
                return false;
            ++length;
        }
        for (size_t k = 0; k < length; ++k)
            advance();
        return true;
    }

    void expect(const char* token)
    {
        if (!accept(token))
            fail();
    }

    std::string identifier()
    {
        std::string word;
        while (isIdentifierChar(peek()))
            word += advance();
        return word;
    }

    // The identifier at the cursor, without moving.
    std::string peekIdentifier() const
    {
        size_t end = fPos;
        while (end < fSource.size() && isIdentifierChar(fSource[end]))
            ++end;
        return fSource.substr(fPos, end - fPos);
    }

    void skipIdentifier(const std::string& word)
    {
        for (size_t k = 0; k < word.size(); ++k)
            advance();
    }

    // --- statements ----------------------------------------------------------------

    StatementPtr statement()
    {
        const Nesting nesting(*this);
        skipSpace();
        const size_t start = fPos;
        StatementPtr result = statementBody();
        result->text = fSource.substr(start, fPos - start);
        while (!result->text.empty() && (isSpace(result->text.back()) || result->text.back() == ';'))
            result->text.pop_back();
        return result;
    }

    StatementPtr statementBody()
    {
        auto result = std::make_unique<Statement>();
        result->at = here();
        const char c = peek();
        if (c == ';') {
            advance();
            return result;
        }
        if (c == '{') {
            advance();
            result->kind = Statement::Kind::Block;
            for (skipSpace(); peek() != '}'; skipSpace()) {
                if (atEnd())
                    fail();
                result->body.push_back(statement());
            }
            advance();
            return result;
        }
        if (c == '$' || c == '`' || ((c == '+' || c == '-') && peek(1) == c)) {
            result->kind = Statement::Kind::Expression;
            result->expr = expression();
            endOfStatement();
            return result;
        }
        if (!isIdentifierStart(c))
            fail();
        const std::string word = peekIdentifier();
        if (word == "if")
            return ifStatement(std::move(result));
        if (word == "for")
            return forStatement(std::move(result));
        if (word == "while" || word == "do")
            return whileStatement(std::move(result), word == "do");
        if (word == "break" || word == "continue") {
            skipIdentifier(word);
            if (fLoops == 0)
                fail();
            result->kind = word == "break" ? Statement::Kind::Break : Statement::Kind::Continue;
            endOfStatement();
            return result;
        }
        if (word == "return")
            return returnStatement(std::move(result));
        if (word == "proc" || (word == "global" && globalProcFollows()))
            return procedure(std::move(result));
        if (word == "global" || isTypeName(word))
            return declaration(std::move(result));
        if (word == "else")
            fail();
        if (fSource.compare(fPos + word.size(), 1, "(") == 0) {
            // Function-call form: cmd("a", 1)
            result->kind = Statement::Kind::Expression;
            result->expr = expression();
        } else {
            skipIdentifier(word);
            result->kind = Statement::Kind::Command;
            result->call = commandArguments(word, result->at, false);
        }
        endOfStatement();
        return result;
    }

    void endOfStatement()
    {
        skipSpace();
        if (peek() == ';')
            advance();
        else if (!atEnd() && peek() != '}')
            fail();
    }

    StatementPtr ifStatement(StatementPtr result)
    {
        skipIdentifier("if");
        result->kind = Statement::Kind::If;
        expect("(");
        result->condition = expression();
        expect(")");
        result->then = statement();
        skipSpace();
        if (peekIdentifier() == "else") {
            skipIdentifier("else");
            result->otherwise = statement();
        }
        return result;
    }

    // The body of a loop: break and continue may appear in it.
    StatementPtr loopBody()
    {
        ++fLoops;
        StatementPtr body = statement();
        --fLoops;
        return body;
    }

    std::vector<ExprPtr> expressionList()
    {
        std::vector<ExprPtr> list;
        do
            list.push_back(expression());
        while (accept(","));
        return list;
    }

    // for (init; condition; step) or for ([type] $item in array).
    StatementPtr forStatement(StatementPtr result)
    {
        skipIdentifier("for");
        expect("(");
        skipSpace();
        const Mark start = mark();
        const std::string typeWord = peekIdentifier();
        if (isTypeName(typeWord)) {
            skipIdentifier(typeWord);
            result->type = typeOf(typeWord);
            skipSpace();
        }
        if (peek() == '$') {
            advance();
            result->variable = identifier();
            skipSpace();
            const std::string word = peekIdentifier();
            if (word == "in" && !result->variable.empty()) {
                skipIdentifier(word);
                result->kind = Statement::Kind::ForIn;
                result->expr = expression();
                expect(")");
                result->then = loopBody();
                return result;
            }
        }
        if (result->type != MelValue::Type::None)
            fail(); // a declaration only declares the variable of a for-in
        restore(start);
        result->variable.clear();
        result->kind = Statement::Kind::For;
        if (!accept(";")) {
            result->start = expressionList();
            expect(";");
        }
        if (!accept(";")) {
            result->condition = expression();
            expect(";");
        }
        if (!accept(")")) {
            result->step = expressionList();
            expect(")");
        }
        result->then = loopBody();
        return result;
    }

    // while (condition) body, or do body while (condition);
    StatementPtr whileStatement(StatementPtr result, bool bodyFirst)
    {
        if (bodyFirst) {
            skipIdentifier("do");
            result->kind = Statement::Kind::DoWhile;
            result->then = loopBody();
            skipSpace();
            if (peekIdentifier() != "while")
                fail();
        } else {
            result->kind = Statement::Kind::While;
        }
        skipIdentifier("while");
        expect("(");
        result->condition = expression();
        expect(")");
        if (bodyFirst)
            endOfStatement();
        else
            result->then = loopBody();
        return result;
    }

    StatementPtr returnStatement(StatementPtr result)
    {
        skipIdentifier("return");
        if (!fProc)
            fail();
        result->kind = Statement::Kind::Return;
        skipSpace();
        const bool hasValue = !atEnd() && peek() != ';' && peek() != '}';
        if (hasValue && fProc->returns == MelValue::Type::None)
            fail("This procedure has no return value.");
        if (!hasValue && fProc->returns != MelValue::Type::None)
            fail();
        if (hasValue)
            result->expr = expression();
        endOfStatement();
        return result;
    }

    bool globalProcFollows()
    {
        const Mark start = mark();
        skipIdentifier("global");
        skipSpace();
        const bool proc = peekIdentifier() == "proc";
        restore(start);
        return proc;
    }

    // [global] proc [type[[]]] name([type $p[[]], ...]) { ... }, only at the
    // top level of a script.
    StatementPtr procedure(StatementPtr result)
    {
        if (fDepth != 1)
            fail();
        auto proc = std::make_shared<Procedure>();
        if (peekIdentifier() == "global") {
            proc->global = true;
            skipIdentifier("global");
            skipSpace();
        }
        skipIdentifier("proc");
        skipSpace();
        std::string word = identifier();
        skipSpace();
        if (isTypeName(word) && (peek() == '[' || isIdentifierStart(peek()))) {
            proc->returns = typeOf(word);
            if (accept("[")) {
                expect("]");
                proc->returns = arrayTypeOf(proc->returns);
            }
            skipSpace();
            word = identifier();
        }
        if (word.empty())
            fail();
        proc->name = word;
        expect("(");
        if (!accept(")")) {
            do {
                skipSpace();
                const std::string type = identifier();
                if (!isTypeName(type))
                    fail();
                skipSpace();
                if (peek() != '$')
                    fail();
                advance();
                Parameter parameter{identifier(), typeOf(type)};
                if (parameter.name.empty())
                    fail();
                if (accept("[")) {
                    expect("]");
                    parameter.type = arrayTypeOf(parameter.type);
                }
                proc->parameters.push_back(std::move(parameter));
            } while (accept(","));
            expect(")");
        }
        skipSpace();
        if (peek() != '{')
            fail();
        fProc = proc.get();
        proc->body = statement();
        fProc = nullptr;
        result->kind = Statement::Kind::Proc;
        result->procedure = std::move(proc);
        return result;
    }

    StatementPtr declaration(StatementPtr result)
    {
        result->kind = Statement::Kind::Declare;
        std::string word = identifier();
        if (word == "global") {
            result->global = true;
            skipSpace();
            word = identifier();
            if (!isTypeName(word))
                fail();
        }
        result->type = typeOf(word);
        do {
            skipSpace();
            if (peek() != '$')
                fail();
            advance();
            Declaration declared;
            declared.name = identifier();
            if (declared.name.empty())
                fail();
            if (accept("[")) {
                // A size ("string $cars[3]") is only a hint: arrays grow on assignment.
                skipSpace();
                while (std::isdigit(static_cast<unsigned char>(peek())))
                    advance();
                expect("]");
                declared.array = true;
            }
            if (accept("="))
                declared.init = expression();
            result->declarations.push_back(std::move(declared));
        } while (accept(","));
        endOfStatement();
        return result;
    }

    // --- command form ----------------------------------------------------------------

    // Arguments up to the end of the statement, or the closing back-tick.
    std::unique_ptr<CommandCall> commandArguments(const std::string& name, Location at, bool inBackTicks)
    {
        auto call = std::make_unique<CommandCall>();
        call->name = name;
        call->at = at;
        for (;;) {
            skipSpace();
            const char c = peek();
            if (atEnd() || c == ';' || c == '}' || (inBackTicks && c == '`'))
                return call;
            CommandArg arg;
            if (c == '"') {
                arg.kind = CommandArg::Kind::Quoted;
                arg.text = stringLiteral();
            } else if (c == '$' || c == '(' || c == '`' || c == '{') {
                arg.kind = CommandArg::Kind::Value;
                arg.value = primary();
            } else {
                while (!atEnd() && !endsBareWord(peek()))
                    arg.text += advance();
                if (arg.text.empty())
                    fail(); // a stray ')' or the like
            }
            call->args.push_back(std::move(arg));
        }
    }

    ExprPtr backTicks()
    {
        auto result = std::make_unique<Expr>();
        result->kind = Expr::Kind::Command;
        result->at = here();
        advance();
        skipSpace();
        if (!isIdentifierStart(peek()))
            fail();
        const Location at = here();
        result->call = commandArguments(identifier(), at, true);
        if (peek() != '`')
            fail();
        advance();
        return result;
    }

    std::string stringLiteral()
    {
        advance(); // the opening quote
        std::string text;
        while (peek() != '"') {
            if (atEnd() || peek() == '\n')
                fail();
            char c = advance();
            if (c == '\\') {
                if (atEnd())
                    fail();
                c = advance();
                switch (c) {
                case 'n': c = '\n'; break;
                case 't': c = '\t'; break;
                case 'r': c = '\r'; break;
                default: break; // \" \\ and any other character stand for themselves
                }
            }
            text += c;
        }
        advance();
        return text;
    }

    // --- expressions -------------------------------------------------------------------

    ExprPtr expression()
    {
        skipSpace();
        if (peek() == '$') {
            const Mark start = mark();
            ExprPtr target = variable();
            skipSpace();
            std::string op;
            if (peek() == '=' && peek(1) != '=')
                op = "=";
            else if ((peek() == '+' || peek() == '-' || peek() == '*' || peek() == '/') && peek(1) == '=')
                op = std::string(1, peek()) + "=";
            if (!op.empty()) {
                for (size_t k = 0; k < op.size(); ++k)
                    advance();
                auto assign = std::make_unique<Expr>();
                assign->kind = Expr::Kind::Assign;
                assign->at = target->at;
                assign->name = op;
                assign->variable = target->name;
                assign->index = std::move(target->index);
                assign->operands.push_back(expression());
                return assign;
            }
            restore(start);
        }
        return binary(0);
    }

    static int precedence(const std::string& op)
    {
        if (op == "||") return 1;
        if (op == "&&") return 2;
        if (op == "==" || op == "!=") return 3;
        if (op == "<" || op == "<=" || op == ">" || op == ">=") return 4;
        if (op == "+" || op == "-") return 5;
        if (op == "*" || op == "/" || op == "%") return 6;
        return 0;
    }

    std::string peekOperator()
    {
        skipSpace();
        static const char* const operators[] = {"||", "&&", "==", "!=", "<=", ">=", "<", ">", "+", "-", "*", "/", "%"};
        for (const char* op : operators) {
            const std::string text = op;
            if (fSource.compare(fPos, text.size(), text) == 0) {
                // "+=", "*=" and the like belong to an assignment, never to a sum.
                if ((text == "+" || text == "-" || text == "*" || text == "/") && peek(1) == '=')
                    return "";
                return text;
            }
        }
        return "";
    }

    ExprPtr binary(int minimum)
    {
        ExprPtr left = unary();
        for (;;) {
            const std::string op = peekOperator();
            const int level = precedence(op);
            if (level == 0 || level <= minimum)
                return left;
            auto node = std::make_unique<Expr>();
            node->kind = Expr::Kind::Binary;
            node->at = here();
            node->name = op;
            for (size_t k = 0; k < op.size(); ++k)
                advance();
            node->operands.push_back(std::move(left));
            node->operands.push_back(binary(level));
            left = std::move(node);
        }
    }

    ExprPtr unary()
    {
        const Nesting nesting(*this);
        skipSpace();
        const char c = peek();
        if ((c == '+' || c == '-') && peek(1) == c && incrementsVariable()) {
            advance();
            advance();
            skipSpace();
            return increment(variable(), c, false);
        }
        if ((c == '!' && peek(1) != '=') || c == '-' || c == '+') {
            auto node = std::make_unique<Expr>();
            node->kind = Expr::Kind::Unary;
            node->at = here();
            node->name = std::string(1, advance());
            node->operands.push_back(unary());
            return node;
        }
        return primary();
    }

    // "++" or "--" at the cursor is an increment only before a variable:
    // "--1" stays two negations.
    bool incrementsVariable() const
    {
        size_t next = fPos + 2;
        while (next < fSource.size() && isSpace(fSource[next]))
            ++next;
        return next < fSource.size() && fSource[next] == '$';
    }

    // ++$x is $x += 1; $x++ is the same but gives the value before.
    ExprPtr increment(ExprPtr target, char sign, bool postfix)
    {
        auto node = std::make_unique<Expr>();
        node->kind = Expr::Kind::Assign;
        node->at = target->at;
        node->name = std::string(1, sign) + "=";
        node->variable = target->name;
        node->index = std::move(target->index);
        node->postfix = postfix;
        node->operands.push_back(literal(MelValue::ofInt(1), target->at));
        return node;
    }

    ExprPtr literal(MelValue value, Location at)
    {
        auto node = std::make_unique<Expr>();
        node->at = at;
        node->literal = std::move(value);
        return node;
    }

    ExprPtr primary()
    {
        skipSpace();
        const Location at = here();
        const char c = peek();
        if (std::isdigit(static_cast<unsigned char>(c)) || (c == '.' && std::isdigit(static_cast<unsigned char>(peek(1)))))
            return number(at);
        if (c == '"')
            return literal(MelValue::ofString(stringLiteral()), at);
        if (c == '$') {
            ExprPtr target = variable();
            if ((peek() == '+' || peek() == '-') && peek(1) == peek()) {
                const char sign = advance();
                advance();
                return increment(std::move(target), sign, true);
            }
            return target;
        }
        if (c == '`')
            return backTicks();
        if (c == '(') {
            advance();
            ExprPtr inner = expression();
            expect(")");
            return inner;
        }
        if (c == '{')
            return arrayLiteral(at);
        if (!isIdentifierStart(c))
            fail();
        const std::string word = identifier();
        if (word == "true" || word == "on" || word == "yes")
            return literal(MelValue::ofInt(1), at);
        if (word == "false" || word == "off" || word == "no")
            return literal(MelValue::ofInt(0), at);
        return functionCall(word, at);
    }

    ExprPtr number(Location at)
    {
        const size_t start = fPos;
        while (std::isdigit(static_cast<unsigned char>(peek())))
            advance();
        bool isFloat = false;
        if (peek() == '.') {
            isFloat = true;
            advance();
            while (std::isdigit(static_cast<unsigned char>(peek())))
                advance();
        }
        if ((peek() == 'e' || peek() == 'E') &&
            (std::isdigit(static_cast<unsigned char>(peek(1))) ||
             ((peek(1) == '-' || peek(1) == '+') && std::isdigit(static_cast<unsigned char>(peek(2)))))) {
            isFloat = true;
            advance();
            advance();
            while (std::isdigit(static_cast<unsigned char>(peek())))
                advance();
        }
        const std::string text = fSource.substr(start, fPos - start);
        if (isFloat)
            return literal(MelValue::ofFloat(std::strtod(text.c_str(), nullptr)), at);
        return literal(MelValue::ofInt(*intFromText(text)), at);
    }

    ExprPtr variable()
    {
        auto node = std::make_unique<Expr>();
        node->kind = Expr::Kind::Variable;
        node->at = here();
        advance(); // '$'
        node->name = identifier();
        if (node->name.empty())
            fail();
        if (peek() == '[') {
            advance();
            node->index = expression();
            expect("]");
        }
        return node;
    }

    ExprPtr arrayLiteral(Location at)
    {
        advance(); // '{'
        auto node = std::make_unique<Expr>();
        node->kind = Expr::Kind::Array;
        node->at = at;
        if (accept("}"))
            return node;
        do
            node->operands.push_back(expression());
        while (accept(","));
        expect("}");
        return node;
    }

    ExprPtr functionCall(const std::string& name, Location at)
    {
        expect("(");
        auto node = std::make_unique<Expr>();
        node->kind = Expr::Kind::Command;
        node->at = at;
        node->call = std::make_unique<CommandCall>();
        node->call->name = name;
        node->call->at = at;
        if (!accept(")")) {
            do {
                CommandArg arg;
                arg.kind = CommandArg::Kind::Value;
                arg.value = expression();
                node->call->args.push_back(std::move(arg));
            } while (accept(","));
            expect(")");
        }
        return node;
    }
};

} // namespace

std::vector<StatementPtr> parse(const std::string& source, int firstLine)
{
    return Parser(source, firstLine).script();
}

} // namespace mayasim::mel
