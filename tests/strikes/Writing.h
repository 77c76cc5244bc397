#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "model/Solids.h"
#include "preview/PictureCopies.h"
#include "support/CountedMemory.h"
#include "support/FakeImaging.h"
#include "support/TemporaryFolder.h"

namespace velna::test {

/// What a program that writes works on: an aircraft with pictures, and a folder in which old files
/// stand where new ones will go.
class Workbench {
public:
    Workbench();

    /// Puts the old files back, and the aircraft as it was.
    void reset();
    /// Makes it another aircraft, with other pictures of the same names, for each number.
    void setVersion(int number);

    /// All that a later save goes by: the titles of the pictures.
    std::vector<std::string> titles() const;
    /// The files that have their places, with their bytes; the lock of unsaved work is none, for a
    /// start clears one without work away.
    std::map<std::string, std::string> files() const;
    /// The names of what has not taken its place.
    std::vector<std::string> leftOver() const;

    std::string operator/(const std::string& name) const { return folder / name; }
    /// The path of a file there, without taking memory for it.
    const std::string& target(const char* name);

    TemporaryFolder folder;
    Project project;
    Solids solids;
    FakeImaging pictures;
    PictureStore store;
    int version = 0;

private:
    void paintPictures();

    Project aircraft_;
    std::string target_;
};

/// Something that writes files into the folder of a bench.
struct Writing {
    const char* name;
    /// Does it; the reason of a failure, empty where all went well.
    std::string (*run)(Workbench& bench);
    /// Whether it is one operation that tells everything by its `Outcome`, memory that ends too.
    bool isOperation = true;
};

/// Everything that the program writes without the toolkit.
std::span<const Writing> writings();

/// One way in which the system can refuse.
struct Refusal {
    const char* name;
    int error;
    bool harms;  ///< whether a program can do nothing about it
};

std::span<const Refusal> refusals();

/// Looks at how something that writes takes refusals.
class Judge {
public:
    /// Has `writing` write once as it wants, in a folder that it makes for it.
    explicit Judge(const Writing& writing);

    /// How many calls that change files it makes.
    int calls() const { return calls_; }

    /// What there is to blame in how it takes the refusal of its `number`th call, or of all from
    /// that on; empty for nothing. The files must all be the old ones or all the new ones, and the
    /// aircraft's titles theirs; what is neither, or left over, or only old, must be told.
    std::string blame(const Refusal& refusal, int number, bool goesOn);

    /// How many blocks of memory it takes.
    int blocks();
    /// The same where memory ends behind so many blocks: one is refused, or all that follow.
    std::string blameWithout(int blocks, RefusedMemory::From from);

private:
    std::string blame(const std::string& reason) const;

    /// What the folder and the aircraft are like.
    struct State {
        std::map<std::string, std::string> files;
        std::vector<std::string> titles;

        friend bool operator==(const State&, const State&) = default;
    };
    State state() const { return {bench_.files(), bench_.titles()}; }

    const Writing writing_;
    Workbench bench_;
    State before_;
    State after_;
    int calls_ = 0;
};

}  // namespace velna::test
