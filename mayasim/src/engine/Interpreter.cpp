#include "engine/Interpreter.h"

#include "engine/Dispatch.h"
#include "engine/MelParser.h"
#include "engine/Output.h"
#include "engine/UndoQueue.h"

#include <mayasim/Host.h>

#include <cmath>
#include <deque>
#include <map>
#include <optional>

namespace mayasim {

namespace {

using mel::CommandArg;
using mel::CommandCall;
using mel::Expr;
using mel::Procedure;
using mel::Statement;
using mel::arrayTypeOf;
using Type = MelValue::Type;

struct Variable
{
    Type type = Type::None; // the declared type; assignments convert to it
    MelValue value;
    Variable* ref = nullptr; // a global named by `global`, or an array passed to a proc: the variable itself
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

Type elementTypeOf(Type array)
{
    switch (array) {
    case Type::IntArray: return Type::Int;
    case Type::FloatArray: return Type::Float;
    default: return Type::String;
    }
}

// Procs by name. A global proc keeps the local procs of the text that
// defined it, which its body may call whenever it runs.
using ProcTable = std::map<std::string, std::shared_ptr<const Procedure>>;

struct GlobalProc
{
    std::shared_ptr<const Procedure> procedure;
    std::shared_ptr<ProcTable> locals;
};

std::map<std::string, GlobalProc>& globalProcs()
{
    static std::map<std::string, GlobalProc> procs;
    return procs;
}

// Proc calls recurse through the interpreter, across nested runs (MEL that
// Python or a plug-in runs) too; deeper than this is an error rather than a
// stack overflow.
constexpr int kMaxCallDepth = 500;
int callDepth = 0;

long stepBudget = 0; // loop passes and proc calls a run may make; 0: no bound

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

// One run of MEL text: its local scopes, local procs and undo flag.
class Run
{
public:
    explicit Run(bool undo) : fUndo(undo) { fScopes.emplace_back(); }

    // Statements recurse through here, and procs through them: each kind
    // runs in a function of its own, so that the frames the recursion stacks
    // hold only what the kinds on its path need.
    MelValue statement(const Statement& s)
    {
        switch (s.kind) {
        case Statement::Kind::Empty: return MelValue::none();
        case Statement::Kind::Block: return block(s);
        case Statement::Kind::If: return ifElse(s);
        case Statement::Kind::Declare: declare(s); return MelValue::none();
        case Statement::Kind::Expression: return expression(*s.expr);
        case Statement::Kind::Command: return command(*s.call);
        case Statement::Kind::For: forLoop(s); return MelValue::none();
        case Statement::Kind::ForIn: forIn(s); return MelValue::none();
        case Statement::Kind::While: whileLoop(s); return MelValue::none();
        case Statement::Kind::DoWhile: doWhileLoop(s); return MelValue::none();
        case Statement::Kind::Break: fFlow = Flow::Break; return MelValue::none();
        case Statement::Kind::Continue: fFlow = Flow::Continue; return MelValue::none();
        case Statement::Kind::Return: returnValue(s); return MelValue::none();
        case Statement::Kind::Proc: define(s.procedure); return MelValue::none();
        }
        return MelValue::none();
    }

private:
    // What ends the statements run so far early: a break, continue or return.
    enum class Flow { Normal, Break, Continue, Return };

    bool fUndo;
    // A deque: pushing and popping scopes keeps the addresses of the
    // variables in the others, which refs point to.
    std::deque<Scope> fScopes;
    int fFrames = 0; // proc calls running in this run
    long fSteps = 0; // loop passes and proc calls made, against stepBudget
    Flow fFlow = Flow::Normal;
    MelValue fReturned;
    std::shared_ptr<ProcTable> fLocals; // made when the first local or global proc is defined

    class NestedScope
    {
    public:
        explicit NestedScope(Run& run) : fRun(run) { fRun.fScopes.emplace_back(); }
        ~NestedScope() { fRun.fScopes.pop_back(); }
        NestedScope(const NestedScope&) = delete;
        NestedScope& operator=(const NestedScope&) = delete;

    private:
        Run& fRun;
    };

    MelValue block(const Statement& s)
    {
        const NestedScope scope(*this);
        MelValue last;
        for (const auto& inner : s.body) {
            last = statement(*inner);
            if (fFlow != Flow::Normal)
                break;
        }
        return last;
    }

    MelValue ifElse(const Statement& s)
    {
        if (holds(*s.condition))
            return statement(*s.then);
        return s.otherwise ? statement(*s.otherwise) : MelValue::none();
    }

    bool holds(const Expr& condition) { return truthy(expression(condition)); }

    void step()
    {
        if (stepBudget > 0 && ++fSteps > stepBudget)
            throw MelError("The run went past its budget of " + std::to_string(stepBudget) +
                           " loop passes and proc calls.");
    }

    void forLoop(const Statement& s)
    {
        for (const auto& start : s.start)
            discard(*start);
        while (!s.condition || holds(*s.condition)) {
            step();
            statement(*s.then);
            if (loopEnds())
                break;
            for (const auto& next : s.step)
                discard(*next);
        }
    }

    void discard(const Expr& e) { expression(e); }

    void whileLoop(const Statement& s)
    {
        while (holds(*s.condition)) {
            step();
            statement(*s.then);
            if (loopEnds())
                break;
        }
    }

    void doWhileLoop(const Statement& s)
    {
        do {
            step();
            statement(*s.then);
            if (loopEnds())
                break;
        } while (holds(*s.condition));
    }

    void returnValue(const Statement& s)
    {
        fReturned = s.expr ? expression(*s.expr) : MelValue::none();
        fFlow = Flow::Return;
    }

    // After a loop's body: whether the loop stops, taking its break or
    // continue; a return goes on out.
    bool loopEnds()
    {
        if (fFlow == Flow::Break) {
            fFlow = Flow::Normal;
            return true;
        }
        if (fFlow == Flow::Continue)
            fFlow = Flow::Normal;
        return fFlow == Flow::Return;
    }

    void forIn(const Statement& s)
    {
        const MelValue items = expression(*s.expr);
        if (!items.isArray())
            throw MelError("The expression after \"in\" is not an array.");
        // A variable declared by the loop lives in it; an undeclared one is
        // declared where the loop is, with the element type.
        std::unique_ptr<NestedScope> scope;
        if (s.type != Type::None) {
            scope = std::make_unique<NestedScope>(*this);
            fScopes.back()[s.variable] = Variable{s.type, convert(MelValue::none(), s.type)};
        } else if (!find(s.variable)) {
            const Type type = elementTypeOf(items.type);
            fScopes.back()[s.variable] = Variable{type, convert(MelValue::none(), type)};
        }
        for (size_t k = 0; k < arraySize(items); ++k) {
            step();
            Variable* variable = find(s.variable);
            variable->value = convert(elementAt(items, k), variable->type);
            statement(*s.then);
            if (loopEnds())
                break;
        }
    }

    Variable* find(const std::string& name)
    {
        for (auto scope = fScopes.rbegin(); scope != fScopes.rend(); ++scope) {
            auto found = scope->find(name);
            if (found != scope->end())
                return found->second.ref ? found->second.ref : &found->second;
        }
        // Outside procs globals need no `global` line.
        if (fFrames > 0)
            return nullptr;
        auto found = globals().find(name);
        return found == globals().end() ? nullptr : &found->second;
    }

    void declare(const Statement& s)
    {
        for (const auto& declared : s.declarations) {
            const Type type = declared.array ? arrayTypeOf(s.type) : s.type;
            if (s.global) {
                auto found = globals().find(declared.name);
                if (found == globals().end()) {
                    Variable variable{type, convert(MelValue::none(), type)};
                    if (declared.init)
                        variable.value = convert(expression(*declared.init), type);
                    found = globals().emplace(declared.name, std::move(variable)).first;
                } else if (found->second.type != type) {
                    throw MelError("Invalid redeclaration of variable \"$" + declared.name + "\" as a different type.");
                }
                // A global is initialised once; declaring it again only names
                // it, here and in the scopes inside.
                fScopes.back()[declared.name] = Variable{type, MelValue::none(), &found->second};
                continue;
            }
            Variable variable{type, convert(MelValue::none(), type)};
            if (declared.init)
                variable.value = convert(expression(*declared.init), type);
            fScopes.back()[declared.name] = std::move(variable);
        }
    }

    void define(const std::shared_ptr<const Procedure>& procedure)
    {
        if (!fLocals)
            fLocals = std::make_shared<ProcTable>();
        if (procedure->global)
            globalProcs()[procedure->name] = GlobalProc{procedure, fLocals};
        else
            (*fLocals)[procedure->name] = procedure;
    }

    // The proc a call names, local ones first; null when it names a command.
    // The caller holds it: the call may define the proc anew as it runs.
    std::shared_ptr<const Procedure> findProc(const std::string& name, std::shared_ptr<ProcTable>& locals)
    {
        if (fLocals) {
            auto found = fLocals->find(name);
            if (found != fLocals->end()) {
                locals = fLocals;
                return found->second;
            }
        }
        if (globalProcs().empty())
            return nullptr;
        auto found = globalProcs().find(name);
        if (found == globalProcs().end())
            return nullptr;
        locals = found->second.locals;
        return found->second.procedure;
    }

    // Runs a proc in scopes of its own: its parameters, then its body. Arrays
    // pass by reference, as in Maya: the proc edits the caller's variable.
    MelValue callProc(const Procedure& proc, std::shared_ptr<ProcTable> locals, const CommandCall& call)
    {
        std::deque<Scope> frame = arguments(proc, call);
        step();
        if (callDepth >= kMaxCallDepth)
            throw MelError("Procedure calls nest more than " + std::to_string(kMaxCallDepth) + " deep (calling " +
                           proc.name + ").");
        const Frame running(*this, frame, locals);
        statement(*proc.body);
        return returned(proc);
    }

    MelValue returned(const Procedure& proc)
    {
        const MelValue value = fFlow == Flow::Return ? std::move(fReturned) : MelValue::none();
        fFlow = Flow::Normal;
        return proc.returns == Type::None ? MelValue::none() : convert(value, proc.returns);
    }

    // The scope a proc starts with: its parameters, bound to the arguments.
    std::deque<Scope> arguments(const Procedure& proc, const CommandCall& call)
    {
        if (call.args.size() != proc.parameters.size())
            throw MelError("Wrong number of arguments on call to " + proc.name + ".");
        std::deque<Scope> frame(1);
        for (size_t k = 0; k < call.args.size(); ++k) {
            const CommandArg& arg = call.args[k];
            const mel::Parameter& parameter = proc.parameters[k];
            Variable& bound = frame.back()[parameter.name];
            bound.type = parameter.type;
            if (arg.kind != CommandArg::Kind::Value) {
                bound.value = convert(MelValue::ofString(arg.text), parameter.type);
                continue;
            }
            const Expr& value = *arg.value;
            Variable* passed = value.kind == Expr::Kind::Variable && !value.index ? find(value.name) : nullptr;
            if (passed && passed->type == parameter.type && passed->value.isArray())
                bound.ref = passed;
            else
                bound.value = convert(expression(value), parameter.type);
        }
        return frame;
    }

    // A proc's scopes and local procs stand in for the caller's while it runs.
    class Frame
    {
    public:
        Frame(Run& run, std::deque<Scope>& scopes, std::shared_ptr<ProcTable>& locals)
            : fRun(run), fScopes(scopes), fLocals(locals)
        {
            fRun.fScopes.swap(fScopes);
            fRun.fLocals.swap(fLocals);
            ++fRun.fFrames;
            ++callDepth;
        }
        ~Frame()
        {
            fRun.fScopes.swap(fScopes);
            fRun.fLocals.swap(fLocals);
            --fRun.fFrames;
            --callDepth;
        }
        Frame(const Frame&) = delete;
        Frame& operator=(const Frame&) = delete;

    private:
        Run& fRun;
        std::deque<Scope>& fScopes;
        std::shared_ptr<ProcTable>& fLocals;
    };

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
        MelValue before;
        if (e.name != "=") {
            if (!variable)
                throw MelError("\"$" + e.variable + "\" is an undeclared variable.");
            before = e.index ? elementAt(variable->value, index(*e.index)) : variable->value;
            value = arithmetic(e.name.substr(0, 1), before, value);
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
            return e.postfix ? before : elementAt(variable->value, at);
        }
        variable->value = convert(value, variable->type);
        return e.postfix ? before : variable->value;
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
        std::shared_ptr<ProcTable> locals;
        if (const std::shared_ptr<const Procedure> proc = findProc(call.name, locals))
            return callProc(*proc, std::move(locals), call);
        if (call.name == "size")
            return size(call);
        return builtinOrPlugin(call);
    }

    // MEL's size counts an array's elements or a string's characters: it
    // needs the value, which words would lose.
    MelValue size(const CommandCall& call)
    {
        if (call.args.size() != 1)
            throw MelError("Wrong number of arguments on call to size.");
        const CommandArg& arg = call.args[0];
        const MelValue value =
            arg.kind == CommandArg::Kind::Value ? expression(*arg.value) : MelValue::ofString(arg.text);
        return MelValue::ofInt(static_cast<long>(value.isArray() ? arraySize(value) : value.asString().size()));
    }

    MelValue builtinOrPlugin(const CommandCall& call)
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
                    !error.message.empty() ? error.message
                                           : "Line " + std::to_string(error.at.line) + "." +
                                                 std::to_string(error.at.column) + ": Syntax error");
        return outcome;
    }
    // A script's statements are each a run of their own (the work queued
    // after a run follows each), sharing the script's locals and local procs.
    std::optional<undo::Execution> whole;
    if (!options.script)
        whole.emplace();
    Run run(options.undo);
    for (const auto& statement : statements) {
        std::optional<undo::Execution> own;
        if (options.script) {
            writeOutput(OutputKind::Echo, statement->text + ";");
            own.emplace();
        }
        try {
            outcome.value = run.statement(*statement);
        } catch (const MelError& error) {
            reportError(error.what(), statement->at.line);
            return outcome;
        } catch (const std::exception& error) {
            reportError(std::string("Internal error: ") + error.what(), statement->at.line);
            return outcome;
        }
        (own ? *own : *whole).statementFinished(statement->text);
        if (options.script && outcome.value.type != Type::None)
            writeOutput(OutputKind::Result, outcome.value.resultText());
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

void host::setMelStepBudget(long steps)
{
    stepBudget = steps;
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
