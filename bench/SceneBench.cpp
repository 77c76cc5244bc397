// The picture beside bare OpenGL programs that put the same on the screen: a replayed frame, a
// rebuild, a frame of the flight. Without a GL that can draw off screen it says so and measures
// nothing.

#include <functional>
#include <vector>

#include <GL/gl.h>
#include <benchmark/benchmark.h>

#include "preview/Flying.h"
#include "preview/Normals.h"
#include "preview/Rendering.h"
#include "support/InHand.h"
#include "support/OffscreenContext.h"

namespace velna {
namespace {

constexpr int fuselages = 20;
constexpr int sections = 100;
constexpr int cross = 64;
constexpr GLuint bareList = 1 << 20;  // far from the names of the lists in use

test::OffscreenContext offscreen{900, 500};
Rendering rendering(project, solids);
Flying flying(project, rendering);

/// An aircraft of many bodies beside each other, and its picture.
bool openLargeScene() {
    Plane::setDefaultPlane(project);
    nbFuselages = fuselages;
    Fuselage::resizeFuselages(project);
    for (int f = 1; f <= fuselages; ++f) {
        MeshSections& body = Fuselages(f);
        body.nb_sections = sections;
        body.nb_cross = cross;
        body.initArrays();
        for (int i = 1; i <= sections; ++i) {
            body.sectionOrder(i) = static_cast<std::int16_t>(i);
            body.pos(i) = 8.0 * i;
            body.height(i) = 20 + i % 10;
            body.width(i) = 25 - i % 7;
            body.elevation(i) = 10.0 * f;
            body.curvature(i) = 1 + 0.01 * i;
            body.curvature2(i) = 0.8;
            body.bias_curve(i) = 0.5;
        }
    }
    ObjectList.update(Fuselages, nbFuselages);
    rendering.context = &offscreen;
    rendering.createRenderContext();
    rendering.setViewTransform(0, 0, 0, 900, 200);
    return rendering.contextCreated;
}

bool ready(benchmark::State& state) {
    static const bool opened = openLargeScene();
    // A software driver compiles its own code at the first frames.
    static const bool warm = [] {
        for (int frame = 0; opened && frame < 20; ++frame) rendering.renderScene(false);
        return true;
    }();
    benchmark::DoNotOptimize(warm);
    if (!opened) state.SkipWithError("no OpenGL that draws off screen");
    return opened;
}

/// The strips of all bodies as arrays, vertex after vertex with its normal.
struct ReadyStrips {
    std::vector<Point3D> normals;
    std::vector<Point3D> vertices;
    std::size_t stripLength = 0;

    ReadyStrips() {
        solids.createAll(project);
        for (int f = 1; f <= fuselages; ++f)
            for (int j = 1; j < sections; ++j) addStrip(solids.fuselages(f), j);
        stripLength = 2 * (cross + 1);
    }

    void addStrip(const BodySolid& body, int j) {
        for (int i = 1; i <= cross + 1; ++i) {
            const int k = i > cross ? 1 : i;
            const int before = k == 1 ? cross : k - 1;
            const int after = k == cross ? 1 : k + 1;
            for (const int row : {j, j + 1}) {
                const int faces = row == sections ? row - 1 : row;
                const Point3D* here = body.points.row(faces);
                const Point3D* next = body.points.row(faces + 1);
                normals.push_back(averageNormal(faceNormal(here[k], here[after], next[k]),
                                                faceNormal(here[before], here[k], next[before])));
                vertices.push_back(body.points(row, k));
            }
        }
    }

    void emitAll() const {
        for (std::size_t at = 0; at < vertices.size(); at += stripLength) {
            glBegin(GL_TRIANGLE_STRIP);
            for (std::size_t i = at; i < at + stripLength; ++i) {
                glNormal3dv(&normals[i].x);
                glVertex3dv(&vertices[i].x);
            }
            glEnd();
        }
    }
};

const ReadyStrips& readyStrips() {
    static const ReadyStrips strips;
    return strips;
}

void bareRebuild() {
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glNewList(bareList, GL_COMPILE);
    glDisable(GL_BLEND);
    readyStrips().emitAll();
    glEndList();
    glCallList(bareList);
    offscreen.swapBuffers();
}

void replayedFrame(benchmark::State& state) {
    if (!ready(state)) return;
    rendering.renderScene(true);
    for (auto _ : state) rendering.renderScene(false);
}
BENCHMARK(replayedFrame)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

void replayedFrameBare(benchmark::State& state) {
    if (!ready(state)) return;
    rendering.renderScene(true);
    bareRebuild();
    for (auto _ : state) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glCallList(bareList);
        offscreen.swapBuffers();
    }
}
BENCHMARK(replayedFrameBare)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

/// Changes the first `bodies` fuselages a little, back and forth.
void changeBodies(int bodies) {
    for (int f = 1; f <= bodies; ++f) Fuselages(f).width(2) = 47.0 - Fuselages(f).width(2);
}

/// A drag of so many of the bodies. None is a click or the end of a drag, and the reference for
/// one; `rebuildBare` is that for all.
void rebuild(benchmark::State& state) {
    if (!ready(state)) return;
    for (auto _ : state) {
        changeBodies(static_cast<int>(state.range(0)));
        rendering.renderScene(true);
    }
}
BENCHMARK(rebuild)
    ->ArgName("bodies")
    ->Arg(0)
    ->Arg(1)
    ->Arg(fuselages)
    ->MeasureProcessCPUTime()
    ->Unit(benchmark::kMillisecond);

/// The share of the points in that.
void rebuildSolids(benchmark::State& state) {
    if (!ready(state)) return;
    for (auto _ : state) solids.createAll(project);
}
BENCHMARK(rebuildSolids)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

void rebuildBare(benchmark::State& state) {
    if (!ready(state)) return;
    readyStrips();
    for (auto _ : state) bareRebuild();
}
BENCHMARK(rebuildBare)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

/// A flight that stands still, so that every frame shows the same; `frame` runs at the end of each.
void fly(const std::function<void()>& frame) {
    offscreen.events = [&frame] {
        flying.flightSpeed = 0;
        frame();
    };
    flying.flyPreview();
    rendering.setViewTransform(0, 0, 0, 900, 200);
}

void flightFrame(benchmark::State& state) {
    if (!ready(state)) return;
    fly([&state] { flying.flying = state.KeepRunning(); });
}
BENCHMARK(flightFrame)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

void flightFrameBare(benchmark::State& state) {
    if (!ready(state)) return;
    fly([&state] {
        for (auto _ : state) {
            glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
            glCallList(1);
            offscreen.swapBuffers();
        }
        flying.flying = false;
    });
}
BENCHMARK(flightFrameBare)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velna
