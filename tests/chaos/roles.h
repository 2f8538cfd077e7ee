#pragma once

#include <QStringList>

namespace lineara::chaos {

/// What a process of this program does instead of testing; the first word names the role. Comes back with the exit
/// code.
int play(const QStringList& role);

/// "edit FILE SEED calm|storm": edits and saves until it is killed. Tells "ready", "step N" before each edit,
/// "state N STATE" after it, "saving NAME DIGEST" before each save, "also NAME DIGEST" for what changes until its turn,
/// and "saved NAME" or "refused NAME" after it.
int edit(const QStringList& words);

/// "look FOLDER": opens what was left like the next program does, and tells "file NAME DIGEST STATE REPAIRS" or
/// "broken NAME", "lock NAME free" or "lock NAME taken", "left STATE REPAIRS" or "left broken" for the copies on offer.
/// Saves each file once more at the end.
int look(const QStringList& words);

/// "migrate FILE": opens a file of an older version and tells "opening", then "opened STATE" or "refused".
int migrate(const QStringList& words);

/// "hold FILE": tells "held" if the right to the file is taken, or "refused", and stays until its input ends.
int hold(const QStringList& words);

/// "adopt": takes over whatever work was left, telling "adopted ID" each time and "done" at the end, and stays until
/// its input ends.
int adopt(const QStringList& words);

/// "fail FILE DISK": edits the file and saves it to a disk that is "full", "unsynced", "closed" to new files, "unnamed"
/// (nothing can be renamed) or "sound". Tells "warned yes|no", "saved" or "message TEXT", "modified yes|no" and "kept
/// yes|no": whether a copy of the work is kept. Ends as if it had crashed.
int fail(const QStringList& words);

} // namespace lineara::chaos
