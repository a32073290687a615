#pragma once
// Undoable scene edits. Each edit applies one change and reverts it; both
// directions fire the messages Maya fires, so undo and redo are seen by
// callbacks like the original change. Scene operations (Operations.h)
// build edits, apply them at once, and keep them in an EditList that a
// command hands to the undo queue and an MDGModifier keeps for undoIt.
#include "engine/Undo.h"
#include "scene/Node.h"

#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

namespace mayasim {

class Edit : public UndoItem
{
public:
    virtual void apply() = 0;
    virtual void revert() = 0;
    void redo() override { apply(); }
    void undo() override { revert(); }
};

using EditPtr = std::unique_ptr<Edit>;

// Edits applied in order, reverted in reverse.
class EditList : public Edit
{
public:
    EditList() = default;
    EditList(EditList&&) = default;
    EditList& operator=(EditList&&) = default;
    ~EditList() override = default;

    // Applies the edit and keeps it.
    void run(EditPtr edit);
    // Keeps an edit that is applied already.
    void adopt(EditPtr edit) { fEdits.push_back(std::move(edit)); }
    void apply() override;
    void revert() override;
    bool empty() const { return fEdits.empty(); }
    // Reverts and forgets everything (a failed command leaves no trace).
    void rollback();
    // Hands the applied edits to the undo queue's running step.
    void commit();

private:
    std::vector<EditPtr> fEdits;
};

// Runs a scene change for a command: on an exception everything done so far
// is reverted and the exception passes on; otherwise the edits join the
// undo queue.
template <typename Work>
auto undoable(Work&& work)
{
    EditList edits;
    try
    {
        if constexpr (std::is_void_v<decltype(work(edits))>)
        {
            work(edits);
            edits.commit();
        }
        else
        {
            auto result = work(edits);
            edits.commit();
            return result;
        }
    }
    catch (...)
    {
        edits.rollback();
        throw;
    }
}

namespace editing {

// Adds a node made with newNode to the scene (under parent for DAG nodes).
EditPtr addNode(NodePtr node, NodePtr parent);
// Takes a node out of the scene; it stays in memory for undo. Its
// connections must be broken and its children removed first.
EditPtr removeNode(NodePtr node);
EditPtr rename(NodePtr node, std::string name);
EditPtr connect(PlugAddress source, PlugAddress destination);
EditPtr disconnect(PlugAddress source, PlugAddress destination);
EditPtr setValue(NodePtr node, PlugKey key, Value value);
EditPtr setLocked(NodePtr node, PlugKey key, bool locked);
EditPtr setKeyable(NodePtr node, PlugKey key, bool keyable);
EditPtr setChannelBox(NodePtr node, PlugKey key, bool channelBox);
EditPtr addAttribute(NodePtr node, AttributePtr attribute);
EditPtr removeAttribute(NodePtr node, AttributePtr attribute);
EditPtr reparent(NodePtr node, NodePtr parent);
EditPtr setUuid(NodePtr node, MUuid uuid);
EditPtr setNodeLocked(NodePtr node, bool locked);
// An edit from two functions, for state outside the nodes (namespaces).
EditPtr lambda(std::function<void()> apply, std::function<void()> revert);

} // namespace editing

} // namespace mayasim
