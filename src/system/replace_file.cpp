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

void discard(const Path& beside) {
    try {
        clearAndRemove(beside);
    } catch (const RuntimeError&) {
        // The first failure is the one to report; the leftover harms nobody.
    }
}

bool replaceWith(const std::function<void(File&)>& fill, const Path& target,
                 ReadOnlyTarget readOnly, const BeforeRename& beforeRename) {
    streams().letGo(target);
    const bool exists = files().fileExists(target);
    if (exists && readOnly == ReadOnlyTarget::Refuse && files().isReadOnly(target)) {
        throw RuntimeError(error::kPathFileAccess);
    }
    const Path place = exists ? files().followLinks(target) : target;
    const Path beside = place + kNewFileEnding;
    clearAndRemove(beside);
    try {
        makeBeside(beside, fill);
        if (beforeRename && !beforeRename(beside)) {
            discard(beside);
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
        discard(beside);
        throw RuntimeError(failure);
    }
    return true;
}

}  // namespace

bool replaceFile(const Path& source, const Path& target, ReadOnlyTarget readOnly,
                 const std::function<void()>& afterBlock, const BeforeRename& beforeRename) {
    return replaceWith(
        [&](File& to) { copyRest(*files().open(source, OpenMode::Input), to, afterBlock); }, target,
        readOnly, beforeRename);
}

bool replaceFileContent(const Path& target, std::string_view content, ReadOnlyTarget readOnly,
                        const BeforeRename& beforeRename) {
    return replaceWith([&](File& to) { to.write(content); }, target, readOnly, beforeRename);
}

}  // namespace marlowick
