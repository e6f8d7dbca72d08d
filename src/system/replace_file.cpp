#include "system/replace_file.h"

#include <functional>
#include <memory>
#include <string>

#include "system/block_copy.h"
#include "system/files.h"
#include "system/runtime_error.h"
#include "system/streams.h"

namespace marlowick {
namespace {

void makeBeside(const Path& beside, const std::function<void(File&)>& fill) {
    const std::unique_ptr<File> to = files().open(beside, OpenMode::CreateNew);
    fill(*to);
    to->flush();
}

void copyBeside(const Path& beside, const Path& source, const std::function<void()>& afterBlock) {
    makeBeside(beside,
               [&](File& to) { copyRest(*files().open(source, OpenMode::Input), to, afterBlock); });
}

void discard(const Path& beside) {
    try {
        clearAndRemove(beside);
    } catch (const RuntimeError&) {
        // The first failure is the one to report; the leftover harms nobody.
    }
}

// How the new file comes to lie beside the target, on the disk itself, and how it goes again if it
// doesn't take the name. exists: the target does.
struct NewFile {
    std::function<void(const Path& beside, bool exists)> make;
    std::function<void(const Path& beside)> takeAway = discard;
};

bool replaceWith(const NewFile& newFile, const Path& target, ReadOnlyTarget readOnly,
                 const BeforeRename& beforeRename) {
    streams().letGo(target);
    const bool exists = files().fileExists(target);
    if (exists && readOnly == ReadOnlyTarget::Refuse && files().isReadOnly(target)) {
        throw RuntimeError(error::kPathFileAccess);
    }
    const Path place = exists ? files().followLinks(target) : target;
    const Path beside = place + kNewFileEnding;
    clearAndRemove(beside);
    try {
        newFile.make(beside, exists);
        if (beforeRename && !beforeRename(beside)) {
            newFile.takeAway(beside);
            return false;
        }
        if (exists) {
            files().copyAttributes(place, beside);
            if (readOnly == ReadOnlyTarget::Replace) {
                files().clearAttributes(beside);
            }
        }
        files().rename(beside, place);
    } catch (...) {
        const RuntimeError failure = currentError();
        newFile.takeAway(beside);
        throw RuntimeError(failure);
    }
    return true;
}

// Moves it back; what can't be moved back goes.
void putBack(const Path& beside, const Path& source) {
    try {
        if (files().moveInOneStep(beside, source)) {
            return;
        }
    } catch (const RuntimeError&) {
        // The first failure is the one to report.
    }
    discard(beside);
}

}  // namespace

bool replaceFile(const Path& source, const Path& target, ReadOnlyTarget readOnly,
                 const std::function<void()>& afterBlock, const BeforeRename& beforeRename) {
    const auto make = [&](const Path& beside, bool) { copyBeside(beside, source, afterBlock); };
    return replaceWith({make}, target, readOnly, beforeRename);
}

bool replaceFileBy(const Path& source, const Path& target, ReadOnlyTarget readOnly,
                   const std::function<void()>& afterBlock, const BeforeRename& beforeRename) {
    bool isMoved = false;
    const auto make = [&](const Path& beside, bool exists) {
        isMoved = exists && files().moveInOneStep(source, beside);
        if (isMoved) {
            files().open(beside, OpenMode::Binary)->flush();
        } else {
            copyBeside(beside, source, afterBlock);
        }
    };
    const auto takeAway = [&](const Path& beside) {
        isMoved ? putBack(beside, source) : discard(beside);
    };
    return replaceWith({make, takeAway}, target, readOnly, beforeRename);
}

bool replaceFileContent(const Path& target, std::string_view content, ReadOnlyTarget readOnly,
                        const BeforeRename& beforeRename) {
    const auto make = [&](const Path& beside, bool) {
        makeBeside(beside, [&](File& to) { to.write(content); });
    };
    return replaceWith({make}, target, readOnly, beforeRename);
}

}  // namespace marlowick
