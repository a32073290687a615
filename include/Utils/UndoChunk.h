#pragma once
#include <QString>

// A named undo chunk for tools that live outside the undo queue.
class UndoChunk
{
public:
    explicit UndoChunk(const QString& name) : fName(name) {}
    void open();
    void close();
    bool isOpen() const { return fOpen; }

private:
    QString fName;
    bool fOpen = false;
};
