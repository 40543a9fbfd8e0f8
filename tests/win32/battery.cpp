#include "battery.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace vex::drawtest {

namespace {

std::vector<DrawingCase>& Registry()
{
    static std::vector<DrawingCase> cases;
    return cases;
}

bool& Sorted()
{
    static bool sorted = false;
    return sorted;
}

} // namespace

void Facts::AddRect(const std::string& label, const platform::Rect& rect)
{
    Add(label + " {" + std::to_string(rect.left) + "," + std::to_string(rect.top) + "," + std::to_string(rect.right)
        + "," + std::to_string(rect.bottom) + "}");
}

CaseGroup::CaseGroup(void (*add)(std::vector<DrawingCase>& cases))
{
    add(Registry());
    Sorted() = false;
}

const std::vector<DrawingCase>& Battery()
{
    auto& cases = Registry();
    if (!Sorted()) {
        std::sort(cases.begin(), cases.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
        for (size_t i = 1; i < cases.size(); ++i) {
            if (cases[i].name == cases[i - 1].name) {
                std::fprintf(stderr, "drawing battery: case %s is defined twice\n", cases[i].name.c_str());
                std::abort();
            }
        }
        Sorted() = true;
    }
    return cases;
}

const DrawingCase* FindCase(const std::string& name)
{
    for (const auto& drawingCase : Battery()) {
        if (drawingCase.name == name)
            return &drawingCase;
    }
    return nullptr;
}

CaseResult RunCase(const DrawingCase& drawingCase, SurfaceFactory makeSurface)
{
    CaseResult result;
    result.name = drawingCase.name;
    Facts facts;
    auto surface = makeSurface(drawingCase.width, drawingCase.height);
    drawingCase.draw(*surface, facts);
    result.pixels = surface->Snapshot();
    result.facts = facts.lines();
    return result;
}

} // namespace vex::drawtest
