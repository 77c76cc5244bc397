#include "shell/BatchExport.h"

#include <filesystem>
#include <map>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "common/Complaint.h"
#include "common/Progress.h"
#include "common/ReplacedFile.h"
#include "model/Project.h"
#include "persistence/WholeProject.h"
#include "shell/ExportKinds.h"

namespace velna {

namespace {

/// What an outcome is told about: a reason of reading names its file already.
struct Result {
    std::string subject;
    Outcome outcome;
    std::vector<std::string> words{};  ///< told in any case
};

/// The export of all projects of one call.
class Batch {
public:
    Batch(const ExportRequest& request, ExportTools& tools) : request_(request), tools_(tools) {
        std::error_code ignored;
        intoFolder_ = std::filesystem::is_directory(request.out, ignored);
    }

    int run() {
        const std::size_t total = request_.projects.size();
        if (total > 1 && !intoFolder_) {
            complain(request_.out, "several projects need a folder that is there");
            return 2;
        }
        for (std::size_t i = 0; i < total && !interrupted(i, total); ++i) {
            if (total > 1) tools_.next(i + 1, total, request_.projects[i]);
            const Result result = exportProject(request_.projects[i]);
            tell(result);
        }
        tools_.clear();
        return failed_ ? 1 : 0;
    }

private:
    /// Told once, by the project under way or between two.
    bool interrupted(std::size_t done, std::size_t total) {
        Progress* const watcher = tools_.watcher();
        if (!watcher || watcher->step(static_cast<long long>(done), static_cast<long long>(total)))
            return false;
        if (!interrupted_) tell({request_.out, Outcome::cancelled()});
        return true;
    }

    void tell(const Result& result) {
        if (!result.words.empty() || !result.outcome.isDone()) tools_.clear();
        for (const std::string& word : result.words) complain(result.subject, word);
        if (result.outcome.isDone()) return;
        failed_ = true;
        interrupted_ = result.outcome.isCancelled();
        const std::string reason =
            result.outcome.isCancelled() ? "interrupted" : result.outcome.reason();
        result.subject.empty() ? complain(reason) : complain(result.subject, reason);
    }

    Result exportProject(const std::string& name) {
        try {
            return exportOne(name);
        } catch (const std::bad_alloc&) {
            return {name, Outcome::failed("more memory is needed than there is")};
        }
    }

    Result exportOne(const std::string& name) {
        const std::string file = target(name);
        // Two projects of one name would have one file, and nobody would know of the first.
        const auto [taken, isNew] = taken_.emplace(file, name);
        if (!isNew) return {name, Outcome::failed(file + " holds " + taken->second + " already")};
        Project project;
        const Outcome opened = Plane::openWholeProject(project, name);
        if (!opened.isDone()) return {"", opened};
        if (request_.fuselage > project.nbFuselages) {
            return {name, Outcome::failed("no fuselage " + std::to_string(request_.fuselage) +
                                          ", it has " + std::to_string(project.nbFuselages))};
        }
        project.currentFuselage = static_cast<std::int16_t>(request_.fuselage);
        pictures_.imaging = &tools_.imaging();
        std::vector<std::string> words;
        const Outcome written =
            rowOf(request_.kind).write({project, request_, file, pictures_, tools_, words});
        return {file, written, words};
    }

    std::string target(const std::string& name) const {
        if (!intoFolder_) return request_.out;
        const std::string folder = request_.out.ends_with('/') ? request_.out : request_.out + "/";
        const std::string stem = std::filesystem::path(name).stem().native();
        return folder + stem + "." + rowOf(request_.kind).ending;
    }

    const ExportRequest& request_;
    ExportTools& tools_;
    PictureStore pictures_;
    std::map<std::string, std::string> taken_;  ///< the projects by their files
    bool intoFolder_ = false;
    bool failed_ = false;
    bool interrupted_ = false;
};

}  // namespace

int exportProjects(const ExportRequest& request, ExportTools& tools) {
    return Batch(request, tools).run();
}

}  // namespace velna
