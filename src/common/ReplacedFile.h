#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "common/TextSink.h"

namespace velna {

/// What becomes of a symbolic link in the target's place: what it points to is replaced, or the
/// link itself.
enum class Links { followed, replaced };

/// Writes a file so that nothing is lost when it fails: the bytes go to a new file beside the
/// target, which takes the target's place only when it is complete on disk. Until `commit` the old
/// file stands whole, and an unfinished new file is removed. The first failure is kept; what is
/// appended after it is dropped. Further files can go with it (`beside`), all or none. What a
/// killed run has left unfinished in the folder goes too, once it is a day old.
class ReplacedFile : public TextSink {
public:
    /// Opens the new file beside `target`; on failure `error()` tells the reason.
    explicit ReplacedFile(std::string target, Links links = Links::followed);
    ~ReplacedFile() override;

    /// Appends `text`; what is large goes into the file at once.
    void append(std::string_view text);

    /// Puts `bytes` in the place of as many from byte `at` on, which have been appended before: a
    /// count that is known only at the end.
    void overwrite(std::size_t at, std::string_view bytes);

    /// Writes a further new file of these bytes, to take the place of `target` (a link there is
    /// replaced) together with this one; the same target given again gets the later bytes. A
    /// failure is this file's failure.
    void beside(const std::string& target, std::string_view bytes);

    /// Writes out what is left, syncs, and puts the files in their places, this one last. Returns
    /// false, with all targets as they were, if anything failed since the start. Three failures
    /// leave new files in place all the same, and `error()` says so: a file that could not be put
    /// back after another could not be put in place, a folder that could not be synced, and what
    /// stood there before, which could not be removed. What is left beside the target for want of
    /// a removal is named too.
    bool commit();

    /// Removes what is unfinished. Returns the first failure, and with it what could not be
    /// removed.
    const std::string& giveUp();

    /// Whether this file stands in its target's place.
    bool inPlace() const { return inPlace_; }

    /// Makes `commit` fail with `reason` unless something has failed before.
    void fail(const std::string& reason);

    /// The first failure in words ("No space left on device"), empty while there is none.
    const std::string& error() const { return error_; }

    /// The new file's name until it is put in place, for who writes it by other means; empty where
    /// it could not be opened.
    const std::string& temporary() const { return temporary_; }

protected:
    void flush() override;

private:
    ReplacedFile() = default;

    void open(Links links);
    void write(std::string_view bytes);
    void complete();
    void fail();
    void failFor(const ReplacedFile& file);
    void sweepFolderOf(const std::string& target);
    bool keepOld();
    bool place();
    bool putBack();
    std::string standing();
    void placeAll();
    std::set<std::string> folders() const;
    std::string tidied();
    void tidyAll();

    std::string target_;
    std::string temporary_;
    std::string old_;  ///< a second name or a copy of the old file while others take their places
    std::string error_;
    std::optional<std::string>
        swept_;  ///< the folder last looked through for what a killed run has left
    int descriptor_ = -1;
    bool inPlace_ = false;
    std::vector<std::unique_ptr<ReplacedFile>> beside_;
};

/// Everything of `path` up to and including the last "/", empty when there is none.
std::string folderOf(std::string_view path);

/// Everything of `path` behind the last "/".
std::string titleOf(std::string_view path);

/// Whether this user can make new files in `folder`; false too where it does not exist.
bool takesFiles(const std::string& folder);

}  // namespace velna
