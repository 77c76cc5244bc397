// A reading and a save that are watched: they ask again and again how to go on, and end at a
// Cancel.

#include "Projects.h"
#include "common/Progress.h"

namespace velna::test {
namespace {

/// A user who cancels at the question with a number, counted from 1.
class CancelsAt : public Progress {
public:
    explicit CancelsAt(int number) : number_(number) {}
    bool step(long long, long long) override { return ++questions != number_; }

    int questions = 0;

private:
    int number_;
};

class WatchedProject : public ProjectTest {
protected:
    void SetUp() override {
        ProjectTest::SetUp();
        nbWings = 3;
        MainWing::allocateWings(project);
        Fuselages(1).nb_sections = 9000;
        Fuselages(1).initArrays();
        for (int i = 1; i <= 9000; ++i) {
            Fuselages(1).sectionOrder(i) = static_cast<std::int16_t>(i);
            Fuselages(1).pos(i) = i * 0.125;
        }
    }
    Outcome saved(Progress* watcher) {
        return Plane::saveProject(project, folder / "p.vln", store, watcher);
    }
};

TEST_F(WatchedProject, ASaveThatIsCancelledAtAnyQuestionLeavesTheOldFileAlone) {
    CancelsAt never(0);
    ASSERT_TRUE(saved(&never).isDone());
    ASSERT_GT(never.questions, 3);
    for (int number = 1; number <= never.questions; ++number) {
        writeBytes(folder / "p.vln", "old");
        CancelsAt user(number);
        EXPECT_TRUE(saved(&user).isCancelled()) << number;
        EXPECT_EQ(user.questions, number);
        EXPECT_EQ(bytesOf(folder / "p.vln"), "old") << number;
        EXPECT_EQ(namesIn(folder.path(), "").size(), 1u) << number;
    }
}

TEST_F(WatchedProject, AReadingCanBeCancelledAtAnyQuestion) {
    ASSERT_TRUE(saved(nullptr).isDone());
    const Project whole = project;
    CancelsAt never(0);
    bool read = false;
    Plane::setDefaultPlane(project);
    ASSERT_TRUE(Plane::readProject(project, folder / "p.vln", &read, &never).isDone());
    EXPECT_TRUE(read);
    EXPECT_EQ(project.Fuselages(1).pos(9000), whole.Fuselages(1).pos(9000));
    ASSERT_GT(never.questions, 3);
    for (int number = 1; number <= never.questions; ++number) {
        Plane::setDefaultPlane(project);
        CancelsAt user(number);
        const Outcome outcome = Plane::readProject(project, folder / "p.vln", &read, &user);
        EXPECT_TRUE(outcome.isCancelled()) << number;
        EXPECT_FALSE(read) << number;
        EXPECT_EQ(user.questions, number);
    }
}

}  // namespace
}  // namespace velna::test
