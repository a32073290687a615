#include "python/Values.h"

#include "foundation/NumberText.h"

#include <algorithm>
#include <memory>

namespace mayasim::python {

namespace {

// Texts that aren't valid UTF-8 pass through unchanged, as surrogates.
PyObject* unicode(const std::string& text)
{
    return PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogateescape");
}

std::string utf8(PyObject* unicodeObject)
{
    PyObject* bytes = PyUnicode_AsEncodedString(unicodeObject, "utf-8", "surrogateescape");
    if (!bytes) {
        PyErr_Clear();
        return {};
    }
    std::string result(PyBytes_AS_STRING(bytes), static_cast<size_t>(PyBytes_GET_SIZE(bytes)));
    Py_DECREF(bytes);
    return result;
}

template <typename Items, typename Make>
PyObject* list(const Items& items, Make make)
{
    PyObject* result = PyList_New(static_cast<Py_ssize_t>(items.size()));
    for (size_t at = 0; result && at < items.size(); ++at)
        PyList_SET_ITEM(result, static_cast<Py_ssize_t>(at), make(items[at]));
    return result;
}

bool isSequence(PyObject* object)
{
    return PyList_Check(object) || PyTuple_Check(object);
}

// One scalar's word text: numbers as MEL writes them, booleans as 1 and 0.
bool scalarText(PyObject* value, std::string& result)
{
    if (PyBool_Check(value))
        result = value == Py_True ? "1" : "0";
    else if (PyLong_Check(value) || PyUnicode_Check(value))
        result = text(value);
    else if (PyFloat_Check(value))
        result = doubleText(PyFloat_AS_DOUBLE(value));
    else {
        PyErr_Format(PyExc_TypeError, "Invalid argument type: %s", Py_TYPE(value)->tp_name);
        return false;
    }
    return true;
}

bool appendTexts(PyObject* value, std::vector<std::string>& texts)
{
    if (!isSequence(value)) {
        std::string scalar;
        if (!scalarText(value, scalar))
            return false;
        texts.push_back(std::move(scalar));
        return true;
    }
    PyObject* items = PySequence_Fast(value, "");
    const Py_ssize_t size = PySequence_Fast_GET_SIZE(items);
    bool ok = true;
    for (Py_ssize_t at = 0; ok && at < size; ++at)
        ok = appendTexts(PySequence_Fast_GET_ITEM(items, at), texts);
    Py_DECREF(items);
    return ok;
}

} // namespace

PyObject* toPython(const MelValue& value)
{
    using Type = MelValue::Type;
    switch (value.type) {
    case Type::Int: return PyLong_FromLong(value.i);
    case Type::Float: return PyFloat_FromDouble(value.f);
    case Type::String: return unicode(value.s);
    case Type::IntArray: return list(value.ia, [](long v) { return PyLong_FromLong(v); });
    case Type::FloatArray: return list(value.fa, [](double v) { return PyFloat_FromDouble(v); });
    case Type::StringArray: return list(value.sa, [](const std::string& v) { return unicode(v); });
    case Type::None: break;
    }
    Py_RETURN_NONE;
}

std::string text(PyObject* object)
{
    PyObject* str = PyObject_Str(object);
    if (!str) {
        PyErr_Clear();
        return {};
    }
    std::string result = utf8(str);
    Py_DECREF(str);
    return result;
}

MelValue toMel(PyObject* object)
{
    if (object == Py_None)
        return MelValue::none();
    if (PyLong_Check(object)) {
        int overflow = 0;
        const long value = PyLong_AsLongAndOverflow(object, &overflow);
        if (!overflow && !PyErr_Occurred())
            return MelValue::ofInt(value);
        PyErr_Clear();
        return MelValue::ofString(text(object));
    }
    if (PyFloat_Check(object))
        return MelValue::ofFloat(PyFloat_AS_DOUBLE(object));
    if (PyUnicode_Check(object))
        return MelValue::ofString(utf8(object));
    if (!isSequence(object))
        return MelValue::ofString(text(object));
    PyObject* items = PySequence_Fast(object, "");
    std::vector<PyObject*> elements(PySequence_Fast_ITEMS(items),
                                    PySequence_Fast_ITEMS(items) + PySequence_Fast_GET_SIZE(items));
    auto all = [&](auto test) { return !elements.empty() && std::all_of(elements.begin(), elements.end(), test); };
    MelValue result;
    if (all([](PyObject* e) { return PyLong_Check(e) != 0; })) {
        std::vector<long> ints;
        for (PyObject* e : elements)
            ints.push_back(toMel(e).asInt());
        result = MelValue::ofInts(std::move(ints));
    } else if (all([](PyObject* e) { return PyLong_Check(e) || PyFloat_Check(e); })) {
        std::vector<double> floats;
        for (PyObject* e : elements)
            floats.push_back(PyFloat_Check(e) ? PyFloat_AS_DOUBLE(e) : toMel(e).asFloat());
        result = MelValue::ofFloats(std::move(floats));
    } else {
        std::vector<std::string> strings;
        for (PyObject* e : elements)
            strings.push_back(PyUnicode_Check(e) ? utf8(e) : text(e));
        result = MelValue::ofStrings(std::move(strings));
    }
    Py_DECREF(items);
    return result;
}

bool appendWords(PyObject* value, std::vector<Word>& words)
{
    std::vector<std::string> texts;
    if (!appendTexts(value, texts))
        return false;
    for (std::string& t : texts)
        words.push_back(Word{std::move(t), true});
    return true;
}

bool appendKeyword(const std::string& flag, PyObject* value, std::vector<Word>& words)
{
    auto keyword = std::make_shared<KeywordValue>();
    if (PyBool_Check(value)) {
        keyword->boolean = value == Py_True;
    } else if (isSequence(value)) {
        keyword->list = true;
        PyObject* items = PySequence_Fast(value, "");
        const Py_ssize_t size = PySequence_Fast_GET_SIZE(items);
        bool ok = true;
        for (Py_ssize_t at = 0; ok && at < size; ++at) {
            keyword->items.emplace_back();
            ok = appendTexts(PySequence_Fast_GET_ITEM(items, at), keyword->items.back());
        }
        Py_DECREF(items);
        if (!ok)
            return false;
    } else {
        keyword->items.emplace_back();
        if (!appendTexts(value, keyword->items.back()))
            return false;
    }
    words.push_back(Word{"-" + flag, false, std::move(keyword)});
    return true;
}

} // namespace mayasim::python
