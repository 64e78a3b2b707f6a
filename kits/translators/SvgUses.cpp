#include "kits/translators/SvgUses.h"

namespace BPrivate::AddOn {

namespace {

constexpr double kMaxDrawnAgain = 1e6;
// Drawing calls itself for every element within an element.
constexpr int kMaxDepth = 1000;

// The id a `use` refers to; empty for anything else.
QString Reference(const QXmlStreamReader& xml) {
    if (xml.name() != u"use")
        return {};
    for (const QXmlStreamAttribute& attribute : xml.attributes()) {
        if (attribute.name() == u"href")
            return attribute.value().trimmed().mid(1).toString();
    }
    return {};
}

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
    for (const QXmlStreamAttribute& attribute : xml.attributes()) {
        if (attribute.name() != u"id")
            continue;
        const int own = NewNode();
        const int id = NodeOf(attribute.value().toString());
        fNodes[size_t(id)].parts.push_back(own);
        fNodes[size_t(node)].parts.push_back(own);
        node = own;
        break;
    }
    ++fElements;
    ++fNodes[size_t(node)].elements;
    if (const QString target = Reference(xml); !target.isEmpty()) {
        const int referred = NodeOf(target);
        fNodes[size_t(node)].parts.push_back(referred);
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
