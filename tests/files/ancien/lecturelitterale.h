#pragma once

#include <QByteArray>
#include <QStringList>

/// The older format as it is told, one step after the other over the bytes: every search walks the whole list. What a
/// reader must find, whatever the bytes are; photos are taken as missing.
class LectureLitterale
{
public:
    explicit LectureLitterale(const QByteArray &contenu)
        : octets(contenu)
    {
        resultat = Lit();
    }

    int resultat = 0;
    int type = 7;  ///< as the bench has it before
    QStringList page{QString(), QString(), QString(), QString(), QString()};
    int generations = 0;

    /// As FichesDe tells a tree.
    [[nodiscard]] QStringList Fiches() const
    {
        QStringList lignes;
        for (const Fiche &f : fiches) {
            lignes += QStringLiteral("%1 %2 %3 %4 %5 %6 ")
                          .arg(f.numero)
                          .arg(f.generation)
                          .arg(f.pere)
                          .arg(f.mere)
                          .arg(f.enfant)
                          .arg(f.textes.at(8).isEmpty() ? -1 : 0)
                + f.textes.join(u'|');
        }
        return lignes;
    }

private:
    struct Fiche
    {
        quint64 numero = 0;
        quint16 generation = 0;
        quint64 pere = 0;
        quint64 mere = 0;
        quint64 enfant = 0;
        QStringList textes{};
    };

    quint64 Entier(int taille)
    {
        quint64 valeur = 0;
        for (int i = 0; i < taille && position < octets.size(); ++i)
            valeur += quint64(quint8(octets.at(position++))) << (8 * i);
        return valeur;
    }

    QString Corps(int n)
    {
        QString texte;
        for (int i = 0; i < n && position < octets.size(); ++i)
            texte += QChar(ushort(quint8(octets.at(position++))));
        return texte;
    }

    QString Texte()
    {
        const int n = int(Entier(2));
        return n > 32767 ? QString() : Corps(n);  // a negative length reads nothing
    }

    int Lit()
    {
        const QString debut = QStringLiteral("Arbre généalogique - R. Lidou - Version ");
        const QString entete = Corps(int(Entier(1)));
        if (entete != debut + QStringLiteral("3.0") && entete != debut + QStringLiteral("1.0"))
            return 2;
        type = entete.endsWith(QStringLiteral("3.0")) ? 3 : 1;
        if (Entier(2) != 1013)
            return 3;
        if (Entier(2) == 1012) {
            for (QString &texte : page)
                texte = Texte();
        }
        Entier(2);
        const quint64 emplacements = Entier(type == 3 ? 8 : 2);
        if (type == 1)
            Entier(4);
        // Behind the end every marker is 0: an empty slot.
        for (quint64 i = 0; i < emplacements && position < octets.size(); ++i) {
            if (Entier(2) == 1011)
                LitPersonne(type == 3 ? 8 : 2);
        }
        generations = int(Entier(2));
        return 0;
    }

    void LitPersonne(int taille)
    {
        Fiche fiche;
        fiche.numero = Entier(taille);
        fiche.generation = quint16(Entier(2));
        fiche.pere = Entier(taille);
        fiche.mere = Entier(taille);
        fiche.enfant = Entier(taille);
        const bool aDesTextes = Entier(2) == 1010;
        for (int i = 0; i < 9; ++i)
            fiche.textes += aDesTextes ? Texte() : QString();
        if (fiche.textes.at(0).isEmpty() && fiche.textes.at(1).isEmpty())
            Oublie(fiche.numero);
        else
            fiches += fiche;
    }

    void Oublie(quint64 numero)
    {
        for (Fiche &enfant : fiches) {
            if (numero != 0 && (enfant.pere == numero || enfant.mere == numero)) {
                (numero % 2 == 1 ? enfant.mere : enfant.pere) = 0;
                return;
            }
        }
    }

    QByteArray octets;
    qsizetype position = 0;
    QList<Fiche> fiches;
};
