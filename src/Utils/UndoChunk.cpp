#include "Utils/UndoChunk.h"

#include <maya/MGlobal.h>

void UndoChunk::open()
{
    if (fOpen)
        return;
    const QString text = QStringLiteral("undoInfo -openChunk -chunkName \"") + fName + QStringLiteral("\"");
    MGlobal::executeCommand(MString(text.toUtf8().constData()), false, false);
    fOpen = true;
}

void UndoChunk::close()
{
    if (!fOpen)
        return;
    const QString text = QStringLiteral("undoInfo -closeChunk -chunkName \"") + fName + QStringLiteral("\"");
    MGlobal::executeCommand(MString(text.toUtf8().constData()), false, false);
    fOpen = false;
}
