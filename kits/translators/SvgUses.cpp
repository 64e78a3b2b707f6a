#include "kits/translators/SvgUses.h"

namespace BPrivate::AddOn {

namespace {

constexpr double kMaxDrawnAgain = 1e6;
// Drawing calls itself for every element within an element.
constexpr int kMaxDepth = 1000;

}  // namespace

SvgUses::SvgUses() : fNodes(1), fOpen{0} {}

int SvgUses::NodeOf(const QString& id) {
    const auto known = fIds.constFind(id);
    if (known != fIds.constEnd())
        return *known;
    const int node = NewNode();
    fIds.insert(id, node);
    return node;
}

int SvgUses::NewNode() {
    fNodes.emplace_back();
    return int(fNodes.size()) - 1;
}

void SvgUses::Add(const QXmlStreamReader& xml) {
    if (xml.tokenType() == QXmlStreamReader::EndElement && fOpen.size() > 1)
        fOpen.pop_back();
    if (xml.tokenType() != QXmlStreamReader::StartElement)
        return;
    int node = fOpen.back();
    // Whatever their prefixes: a reader may see an id or a reference in any of them.
    int own = -1;
    for (const QXmlStreamAttribute& attribute : xml.attributes()) {
        if (attribute.name() != u"id")
            continue;
        const int id = NodeOf(attribute.value().toString());
        if (own < 0) {
            own = NewNode();
            fNodes[size_t(node)].parts.push_back(own);
            node = own;
        }
        fNodes[size_t(id)].parts.push_back(own);
    }
    ++fElements;
    ++fNodes[size_t(node)].elements;
    for (const QXmlStreamAttribute& attribute : xml.attributes()) {
        if (xml.name() == u"use" && attribute.name() == u"href") {
            const int target = NodeOf(attribute.value().trimmed().mid(1).toString());
            fNodes[size_t(node)].parts.push_back(target);
        }
    }
    fOpen.push_back(node);
}

bool SvgUses::AreFew() {
    return FindCost(0, 0) && fNodes[0].cost - fElements <= kMaxDrawnAgain;
}

// False where the references go round or too deep.
bool SvgUses::FindCost(int index, int depth) {
    if (fNodes[size_t(index)].cost >= 0)
        return true;
    if (fNodes[size_t(index)].underWay || depth > kMaxDepth)
        return false;
    fNodes[size_t(index)].underWay = true;
    double cost = fNodes[size_t(index)].elements;
    for (const int part : fNodes[size_t(index)].parts) {
        if (!FindCost(part, depth + 1))
            return false;
        cost += fNodes[size_t(part)].cost;
    }
    fNodes[size_t(index)].cost = cost;
    return true;
}

}  // namespace BPrivate::AddOn
