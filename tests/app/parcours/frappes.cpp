#include "frappes.h"

#include "pilote.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

QString Tirage::Texte()
{
    static const QStringList mots =
        QString("MARTIN|LEFÈVRE|Élise|d'Œuf|Noël-François|l'Hôpital \"Saint-Louis\"|ÿ Ÿ ß ñ ç|vers 1650|12/03/1701|"
                "«\u00a0Paris\u00a0»|a > b|100 % \\ %1 %n|Łódź|Ελένη|李|\U0001F333|e\u0301te\u0301|Marie;Anne,Jeanne|?|"
                "(1) [2]|x|#@~|'")
            .split(u'|');
    switch (Parmi(20)) {
    case 0:
        return " ";
    case 1:
        return "  deux  blancs  ";
    case 2:
        return QString("Très long texte, ").repeated(1 + Parmi(20));
    case 3:
    case 4:
    case 5:
        return Un(mots) + u' ' + Un(mots) + u' ' + Un(mots);
    default:
        return Un(mots);
    }
}

void Saisie::Joue(QDialog &dialogue, const QList<QLineEdit *> &lignes, QPushButton &ok, QPushButton &annuler) const
{
    for (const Frappe &frappe : frappes) {
        QLineEdit &ligne = *lignes.at(static_cast<qsizetype>(frappe.champ));
        if (frappe.maniere == Frappe::Effacer)
            Efface(ligne);
        else if (frappe.maniere == Frappe::Ajouter)
            Ajoute(ligne, frappe.texte);
        else
            Remplace(ligne, frappe.texte);
    }
    switch (fin) {
    case BoutonOk:
        ok.click();
        break;
    case Entree:
        QTest::keyClick(lignes.constLast(), Qt::Key_Return);
        break;
    case BoutonAnnuler:
        annuler.click();
        break;
    case Echap:
        QTest::keyClick(lignes.constFirst(), Qt::Key_Escape);
        break;
    case Fermeture:
        dialogue.close();
        break;
    }
}
