#pragma once

#include <QHash>
#include <QString>
#include <QXmlStreamReader>
#include <vector>

namespace BPrivate::AddOn {

/// Counts what a drawing's `use` elements make of it. A few dozen of them, each drawing the last
/// one twice, ask for more elements than anybody can wait for.
class SvgUses {
public:
    SvgUses();

    /// Takes the next token of the drawing.
    void Add(const QXmlStreamReader& xml);

    /// Whether drawing it is within reason: at most a million elements drawn again, at most a
    /// thousand of them within each other, and none within itself. After the last token.
    bool AreFew();

private:
    // An element that has an id, with those within it that have none; or an id, which draws the
    // elements that have it (more than one in a careless drawing).
    struct Node {
        double elements = 0;
        std::vector<int> parts;  // the nodes drawn with it: elements within it, ids it refers to
        double cost = -1;        // elements drawn for it; -1 as long as it is not known
        bool underWay = false;
    };

    int NodeOf(const QString& id);
    int NewNode();
    bool FindCost(int node, int depth);

    std::vector<Node> fNodes;  // the first is the drawing itself
    QHash<QString, int> fIds;
    std::vector<int> fOpen;  // for every open element, the node it belongs to
    double fElements = 0;
};

}  // namespace BPrivate::AddOn
