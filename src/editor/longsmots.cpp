#include "longsmots.h"

#include <QTextBlock>
#include <QTextEdit>

namespace {

bool ATropLongMot(const QString &ligne)
{
    constexpr int longueurPermise = 4000;
    int longueur = 0;
    for (const QChar caractere : ligne) {
        longueur = caractere.isSpace() ? 0 : longueur + 1;
        if (longueur > longueurPermise)
            return true;
    }
    return false;
}

}  // namespace

void CoupeLesTresLongsMots(QTextEdit *texte)
{
    QTextDocument *document = texte->document();
    // Told before the lines are laid out.
    QObject::connect(document, &QTextDocument::contentsChange, texte, [=](int debut, int, int ajoutes) {
        if (texte->wordWrapMode() == QTextOption::WrapAnywhere)
            return;
        for (QTextBlock ligne = document->findBlock(debut); ligne.isValid() && ligne.position() <= debut + ajoutes;
             ligne = ligne.next()) {
            if (ATropLongMot(ligne.text())) {
                texte->setWordWrapMode(QTextOption::WrapAnywhere);
                return;
            }
        }
    });
}
