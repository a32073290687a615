#include "engine/Interpreter.h"

#include "engine/Dispatch.h"
#include "engine/MelParser.h"
#include "engine/Output.h"
#include "engine/UndoQueue.h"

#include <cmath>
#include <map>

namespace mayasim {

namespace {

using mel::CommandArg;
using mel::CommandCall;
using mel::Expr;
using mel::Statement;
using Type = MelValue::Type;

struct Variable
{
    Type type = Type::None; // the declared type; assignments convert to it
    MelValue value;
};

using Scope = std::map<std::string, Variable>;

Scope& globals()
{
    static Scope scope = [] {
        Scope initial;
        // The names of the UI controls that scripts reach through these.
        initial["gPlayBackSlider"] = {Type::String, MelValue::ofString("timeControl1")};
        initial["gChannelBoxName"] = {Type::String, MelValue::ofString("mainChannelBox")};
        return initial;
    }();
    return scope;
}

Type arrayTypeOf(Type element)
{
    switch (element) {
    case Type::Int: return Type::IntArray;
    case Type::Float: return Type::FloatArray;
    default: return Type::StringArray;
    }
}

MelValue elementAt(const MelValue& array, size_t index)
{
    switch (array.type) {
    case Type::IntArray: return MelValue::ofInt(index < array.ia.size() ? array.ia[index] : 0);
    case Type::FloatArray: return MelValue::ofFloat(index < array.fa.size() ? array.fa[index] : 0.0);
    case Type::StringArray: return MelValue::ofString(index < array.sa.size() ? array.sa[index] : "");
    default: throw MelError("Cannot index a variable that is not an array.");
    }
}

size_t arraySize(const MelValue& array)
{
    return array.ia.size() + array.fa.size() + array.sa.size();
}

std::string typeName(Type type)
{
    switch (type) {
    case Type::Int: return "int";
    case Type::Float: return "float";
    case Type::String: return "string";
    case Type::IntArray: return "int[]";
    case Type::FloatArray: return "float[]";
    case Type::StringArray: return "string[]";
    case Type::None: break;
    }
    return "void";
}

MelValue convert(const MelValue& value, Type type)
{
    if (type == Type::None || value.type == type)
        return value;
    switch (type) {
    case Type::Int: return MelValue::ofInt(value.asInt());
    case Type::Float: return MelValue::ofFloat(value.asFloat());
    case Type::String: return MelValue::ofString(value.asString());
    default: break;
    }
    if (!value.isArray() && value.type != Type::None)
        throw MelError("Cannot convert data of type " + typeName(value.type) + " to type " + typeName(type) + ".");
    MelValue result;
    result.type = type;
    for (size_t k = 0; k < arraySize(value); ++k) {
        const MelValue element = elementAt(value, k);
        if (type == Type::IntArray)
            result.ia.push_back(element.asInt());
        else if (type == Type::FloatArray)
            result.fa.push_back(element.asFloat());
        else
            result.sa.push_back(element.asString());
    }
    return result;
}

void setElement(MelValue& array, size_t index, const MelValue& value)
{
    switch (array.type) {
    case Type::IntArray:
        if (index >= array.ia.size())
            array.ia.resize(index + 1, 0);
        array.ia[index] = value.asInt();
        break;
    case Type::FloatArray:
        if (index >= array.fa.size())
            array.fa.resize(index + 1, 0.0);
        array.fa[index] = value.asFloat();
        break;
    case Type::StringArray:
        if (index >= array.sa.size())
            array.sa.resize(index + 1);
        array.sa[index] = value.asString();
        break;
    default: throw MelError("Cannot index a variable that is not an array.");
    }
}

bool truthy(const MelValue& value)
{
    if (value.type == Type::Int)
        return value.i != 0;
    return value.asFloat() != 0.0;
}

bool isString(const MelValue& value)
{
    return value.type == Type::String || value.type == Type::StringArray;
}

MelValue arithmetic(const std::string& op, const MelValue& a, const MelValue& b)
{
    if (op == "+" && (isString(a) || isString(b)))
        return MelValue::ofString(a.asString() + b.asString());
    if (a.type == Type::Int && b.type == Type::Int) {
        if ((op == "/" || op == "%") && b.i == 0)
            throw MelError("Divide by zero.");
        if (op == "+") return MelValue::ofInt(a.i + b.i);
        if (op == "-") return MelValue::ofInt(a.i - b.i);
        if (op == "*") return MelValue::ofInt(a.i * b.i);
        if (op == "/") return MelValue::ofInt(a.i / b.i);
        return MelValue::ofInt(a.i % b.i);
    }
    const double x = a.asFloat(), y = b.asFloat();
    if (op == "+") return MelValue::ofFloat(x + y);
    if (op == "-") return MelValue::ofFloat(x - y);
    if (op == "*") return MelValue::ofFloat(x * y);
    if (op == "/") return MelValue::ofFloat(x / y);
    return MelValue::ofFloat(std::fmod(x, y));
}

MelValue compare(const std::string& op, const MelValue& a, const MelValue& b)
{
    int order = 0;
    if (isString(a) || isString(b)) {
        const int c = a.asString().compare(b.asString());
        order = c < 0 ? -1 : c > 0 ? 1 : 0;
    } else {
        const double x = a.asFloat(), y = b.asFloat();
        order = x < y ? -1 : x > y ? 1 : 0;
    }
    bool result = false;
    if (op == "==") result = order == 0;
    else if (op == "!=") result = order != 0;
    else if (op == "<") result = order < 0;
    else if (op == "<=") result = order <= 0;
    else if (op == ">") result = order > 0;
    else result = order >= 0;
    return MelValue::ofInt(result ? 1 : 0);
}

// One run of MEL text: its local scopes and undo flag.
class Run
{
public:
    explicit Run(bool undo) : fUndo(undo) { fScopes.emplace_back(); }

    MelValue statement(const Statement& s)
    {
        switch (s.kind) {
        case Statement::Kind::Empty: return MelValue::none();
        case Statement::Kind::Block: {
            fScopes.emplace_back();
            MelValue last;
            try {
                for (const auto& inner : s.body)
                    last = statement(*inner);
            } catch (...) {
                fScopes.pop_back();
                throw;
            }
            fScopes.pop_back();
            return last;
        }
        case Statement::Kind::If:
            if (truthy(expression(*s.condition)))
                return statement(*s.then);
            return s.otherwise ? statement(*s.otherwise) : MelValue::none();
        case Statement::Kind::Declare: declare(s); return MelValue::none();
        case Statement::Kind::Expression: return expression(*s.expr);
        case Statement::Kind::Command: return command(*s.call);
        }
        return MelValue::none();
    }

private:
    bool fUndo;
    std::vector<Scope> fScopes;

    Variable* find(const std::string& name)
    {
        for (auto scope = fScopes.rbegin(); scope != fScopes.rend(); ++scope) {
            auto found = scope->find(name);
            if (found != scope->end())
                return &found->second;
        }
        auto found = globals().find(name);
        return found == globals().end() ? nullptr : &found->second;
    }

    void declare(const Statement& s)
    {
        for (const auto& declared : s.declarations) {
            const Type type = declared.array ? arrayTypeOf(s.type) : s.type;
            if (s.global && globals().count(declared.name)) {
                // A global is initialised once; declaring it again only names it.
                if (globals()[declared.name].type != type)
                    throw MelError("Invalid redeclaration of variable \"$" + declared.name + "\" as a different type.");
                continue;
            }
            Variable variable{type, convert(MelValue::none(), type)};
            if (declared.init)
                variable.value = convert(expression(*declared.init), type);
            (s.global ? globals() : fScopes.back())[declared.name] = std::move(variable);
        }
    }

    MelValue expression(const Expr& e)
    {
        switch (e.kind) {
        case Expr::Kind::Literal: return e.literal;
        case Expr::Kind::Variable: {
            Variable* variable = find(e.name);
            if (!variable)
                throw MelError("\"$" + e.name + "\" is an undeclared variable.");
            if (!e.index)
                return variable->value;
            return elementAt(variable->value, index(*e.index));
        }
        case Expr::Kind::Assign: return assign(e);
        case Expr::Kind::Unary: {
            const MelValue operand = expression(*e.operands[0]);
            if (e.name == "!")
                return MelValue::ofInt(truthy(operand) ? 0 : 1);
            if (e.name == "+")
                return operand;
            if (operand.type == Type::Int)
                return MelValue::ofInt(-operand.i);
            return MelValue::ofFloat(-operand.asFloat());
        }
        case Expr::Kind::Binary: return binary(e);
        case Expr::Kind::Command: return command(*e.call);
        case Expr::Kind::Array: return array(e);
        }
        return MelValue::none();
    }

    size_t index(const Expr& e)
    {
        const long value = expression(e).asInt();
        if (value < 0)
            throw MelError("Array index out of bounds.");
        return static_cast<size_t>(value);
    }

    MelValue assign(const Expr& e)
    {
        MelValue value = expression(*e.operands[0]);
        Variable* variable = find(e.variable);
        if (e.name != "=") {
            if (!variable)
                throw MelError("\"$" + e.variable + "\" is an undeclared variable.");
            const MelValue current = e.index ? elementAt(variable->value, index(*e.index)) : variable->value;
            value = arithmetic(e.name.substr(0, 1), current, value);
        }
        if (!variable) {
            // Assigning to a new name declares it with the value's type.
            const Type type = e.index ? arrayTypeOf(value.type) : value.type;
            variable = &fScopes.back()[e.variable];
            *variable = Variable{type, convert(MelValue::none(), type)};
        }
        if (e.index) {
            const size_t at = index(*e.index);
            setElement(variable->value, at, value);
            return elementAt(variable->value, at);
        }
        variable->value = convert(value, variable->type);
        return variable->value;
    }

    MelValue binary(const Expr& e)
    {
        const std::string& op = e.name;
        if (op == "&&" || op == "||") {
            const bool left = truthy(expression(*e.operands[0]));
            if (op == "&&" && !left)
                return MelValue::ofInt(0);
            if (op == "||" && left)
                return MelValue::ofInt(1);
            return MelValue::ofInt(truthy(expression(*e.operands[1])) ? 1 : 0);
        }
        const MelValue a = expression(*e.operands[0]);
        const MelValue b = expression(*e.operands[1]);
        if (op == "+" || op == "-" || op == "*" || op == "/" || op == "%")
            return arithmetic(op, a, b);
        return compare(op, a, b);
    }

    MelValue array(const Expr& e)
    {
        std::vector<MelValue> items;
        Type element = Type::Int;
        for (const auto& operand : e.operands) {
            items.push_back(expression(*operand));
            if (isString(items.back()))
                element = Type::String;
            else if (items.back().type == Type::Float && element == Type::Int)
                element = Type::Float;
        }
        MelValue result;
        result.type = arrayTypeOf(element);
        for (size_t k = 0; k < items.size(); ++k)
            setElement(result, k, items[k]);
        return result;
    }

    MelValue command(const CommandCall& call)
    {
        std::vector<Word> words;
        for (const CommandArg& arg : call.args) {
            if (arg.kind != CommandArg::Kind::Value) {
                words.push_back(Word{arg.text, arg.kind == CommandArg::Kind::Quoted});
                continue;
            }
            // A value never reads as a flag; an array gives one word per item.
            const MelValue value = expression(*arg.value);
            if (value.isArray()) {
                for (size_t k = 0; k < arraySize(value); ++k)
                    words.push_back(Word{elementAt(value, k).asString(), true});
            } else if (value.type != Type::None) {
                words.push_back(Word{value.asString(), true});
            }
        }
        return dispatchCommand(call.name, words, fUndo);
    }
};

void reportError(const std::string& message, int line)
{
    if (!message.empty())
        writeOutput(OutputKind::Error, "line " + std::to_string(line) + ": " + message);
}

} // namespace

RunOutcome executeMel(const std::string& text, const RunOptions& options)
{
    const LanguageScope language(ScriptLanguage::Mel);
    RunOutcome outcome;
    if (options.display)
        writeOutput(OutputKind::Echo, text);
    std::vector<mel::StatementPtr> statements;
    try {
        statements = mel::parse(text, options.firstLine);
    } catch (const mel::SyntaxError& error) {
        writeOutput(OutputKind::Error, error.line);
        writeOutput(OutputKind::Error,
                    "Line " + std::to_string(error.at.line) + "." + std::to_string(error.at.column) + ": Syntax error");
        return outcome;
    }
    undo::Execution execution;
    Run run(options.undo);
    for (const auto& statement : statements) {
        try {
            outcome.value = run.statement(*statement);
        } catch (const MelError& error) {
            reportError(error.what(), statement->at.line);
            return outcome;
        } catch (const std::exception& error) {
            reportError(std::string("Internal error: ") + error.what(), statement->at.line);
            return outcome;
        }
        execution.statementFinished(statement->text);
    }
    outcome.ok = true;
    if (options.display && outcome.value.type != Type::None)
        writeOutput(OutputKind::Result, outcome.value.resultText());
    return outcome;
}

bool runMel(const std::string& text, MelValue* result, bool undo)
{
    RunOutcome outcome = executeMel(text, RunOptions{false, undo});
    if (result)
        *result = std::move(outcome.value);
    return outcome.ok;
}

void setGlobalVariable(const std::string& name, const MelValue& value)
{
    globals()[name] = Variable{value.type, value};
}

MelValue globalVariable(const std::string& name)
{
    auto found = globals().find(name);
    return found == globals().end() ? MelValue::none() : found->second.value;
}

} // namespace mayasim
