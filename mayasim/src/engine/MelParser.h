#pragma once
// MEL source to a tree of statements. A script is parsed whole before any of
// it runs, so a syntax error anywhere runs nothing.
#include "engine/Command.h"

#include <memory>
#include <string>
#include <vector>

namespace mayasim::mel {

struct Location
{
    int line = 1;
    int column = 1;
};

struct Expr;
struct Statement;
using ExprPtr = std::unique_ptr<Expr>;
using StatementPtr = std::unique_ptr<Statement>;

// One argument of a command written in command form: a bare word, a quoted
// string, or a value ($var, (expr), `command`, {array}).
struct CommandArg
{
    enum class Kind { Bare, Quoted, Value };
    Kind kind = Kind::Bare;
    std::string text;
    ExprPtr value;
};

struct CommandCall
{
    std::string name;
    std::vector<CommandArg> args;
    Location at;
};

struct Expr
{
    enum class Kind { Literal, Variable, Assign, Unary, Binary, Command, Array };
    Kind kind = Kind::Literal;
    Location at;
    MelValue literal;                // Literal
    std::string name;                // Variable and Assign: the name without '$'; Unary, Binary, Assign: operator
    std::string variable;            // Assign: the variable assigned
    ExprPtr index;                   // Variable, Assign: element index, if any
    bool postfix = false;            // Assign: $x++ and $x-- give the value before
    std::vector<ExprPtr> operands;   // Unary 1, Binary 2, Assign 1 (the value), Array n
    std::unique_ptr<CommandCall> call; // Command: back-tick substitution or function-call form
};

struct Declaration
{
    std::string name;
    bool array = false;
    ExprPtr init;
};

struct Parameter
{
    std::string name;
    MelValue::Type type = MelValue::Type::None; // an array type for `int $a[]`
};

// A proc outlives the text that defined it when it is global.
struct Procedure
{
    std::string name;
    bool global = false;
    MelValue::Type returns = MelValue::Type::None; // None: no return value
    std::vector<Parameter> parameters;
    StatementPtr body; // a Block
};

struct Statement
{
    enum class Kind { Empty, Block, If, Declare, Expression, Command, For, ForIn, While, DoWhile, Break, Continue, Return, Proc };
    Kind kind = Kind::Empty;
    Location at;
    std::string text;                  // the source of the statement, for undo step names
    std::vector<StatementPtr> body;    // Block
    ExprPtr condition;                 // If, For (may be null), While, DoWhile
    StatementPtr then, otherwise;      // If; then is the body of a loop
    bool global = false;               // Declare
    MelValue::Type type = MelValue::Type::None; // Declare: Int, Float or String; ForIn: the declared loop variable's, if any
    std::vector<Declaration> declarations;
    ExprPtr expr;                      // Expression; ForIn: the array; Return: the value, if any
    std::vector<ExprPtr> start, step;  // For: comma-separated expressions
    std::string variable;              // ForIn: the loop variable, without '$'
    std::unique_ptr<CommandCall> call; // Command
    std::shared_ptr<const Procedure> procedure; // Proc
};

struct SyntaxError
{
    Location at;
    std::string line; // the source line the error is on
    std::string message; // Maya's words when it names the fault; else "Line L.C: Syntax error"
};

// The array type of an element type: Int gives IntArray.
MelValue::Type arrayTypeOf(MelValue::Type element);

// Throws SyntaxError.
std::vector<StatementPtr> parse(const std::string& source, int firstLine = 1);

} // namespace mayasim::mel
