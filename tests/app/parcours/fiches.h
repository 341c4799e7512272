#pragma once

#include <QList>
#include <QPointer>
#include <QSet>
#include <QString>

class Fenetre;
class LyTextBrowser;
class LyTextEdit;
class Partie;
class QAction;

/// An editor of sheets that is open, as it must be.
struct Edite
{
    QPointer<LyTextEdit> vue;
    bool seul = false;  ///< a program of its own, not opened by the main window
    QString titreBase{};
    QString titre{};
    QString chemin{};
    QString texte{};
    QSet<QString> passes{};  ///< the texts that an undo may bring back
    bool html = true;
    bool modifie = false;
    bool ecrase = false;
    QString alignement{};
    QString cherche{};
    QString remplacement{};
    bool casse = true;
};

/// A browser that is open.
struct Affiche
{
    QPointer<LyTextBrowser> vue;
    QString debutTitre;
    QPointer<LyTextEdit> proprietaire;  ///< the editor that opened it and takes it along, or none
};

/// The windows of sheets of a random user, beside the main window: what is open, what must show, and what the user does
/// there.
class Fiches
{
public:
    explicit Fiches(Partie &laPartie);
    ~Fiches();
    Q_DISABLE_COPY_MOVE(Fiches)

    /// Names of sheets that a user may give, some of which exist after EcritLesFiches.
    [[nodiscard]] static const QStringList &Noms();
    void EcritLesFiches() const;

    [[nodiscard]] int Nombre() const { return static_cast<int>(edites.size() + affiches.size()); }
    [[nodiscard]] int NombreALEcran() const;
    /// Where the windows, or the chain that \a fenetre keeps, are not as they must be.
    [[nodiscard]] QString Ecart(const Fenetre &fenetre) const;
    /// Windows that nobody expected go.
    void FermeLesInconnues();

    // What the main window's commands do here: stated before they run, and seen when they have run.
    [[nodiscard]] bool EstEdite(const QString &chemin) const;
    [[nodiscard]] bool Complet() const { return Nombre() >= 6; }
    void PrevoitOuverture(const QString &chemin);
    QString ConstateLEditeur(const QString &titreBase, const QString &chemin, const QString &nom);
    QString ConstateLAfficheur(const QString &debutTitre, LyTextEdit *proprietaire = nullptr);
    /// The main window closes, and asks the editors in the order of their opening; some stay open.
    void PrevoitFermetureDeTout();
    /// The main window is destroyed, which asks the editors again, the last one first, and waits for those that stay.
    void PrevoitDestruction();
    /// What is left now that the main window is gone.
    QString ConstateLaFin();

    void OuvreSeul();
    /// One event in one of the windows. What went wrong, or nothing.
    QString Utilise();

private:
    [[nodiscard]] QString EcartDe(const Edite &edite) const;
    [[nodiscard]] QString EcartDeLaChaine(const Fenetre &fenetre) const;
    template <typename Vue> [[nodiscard]] QList<Vue *> Inconnues() const;

    // Browsers.
    void UtiliseLAfficheur(Affiche &affiche);
    void ImprimeLAfficheur(Affiche &affiche);

    // Text.
    struct DefGeste
    {
        const char *nom;
        int chance;
        void (Fiches::*fait)(Edite &);
    };
    [[nodiscard]] static QList<DefGeste> GestesDe(const Edite &edite);
    void UtiliseLEditeur(Edite &edite);
    void Tape(Edite &edite);
    void Efface(Edite &edite);
    void Deplace(Edite &edite);
    void Balise(Edite &edite);
    void Aligne(Edite &edite);
    void InsereUnBloc(Edite &edite);
    void InsereUnTableau(Edite &edite);
    void Annule(Edite &edite);
    void PressePapier(Edite &edite);
    void Ecrase(Edite &edite);
    /// What is selected becomes \a texte, with the cursor \a recul before its end.
    void Insere(Edite &edite, const QString &texte, int recul);
    /// After a command that inserts: text and cursor are there.
    void Constate(const Edite &edite);

    // Search.
    void Cherche(Edite &edite);
    void Remplace(Edite &edite);
    void Encore(Edite &edite);
    void PrevoitRecherche(Edite &edite);

    // Files and the rest of the window.
    void Sauve(Edite &edite);
    void SauveSous(Edite &edite);
    void Commence(Edite &edite);
    void Ouvre(Edite &edite);
    void Ferme(Edite &edite);
    void Montre(Edite &edite);
    void ChangeLaPolice(Edite &edite);
    void DemandeQuiEstCe(Edite &edite);
    void Aide(Edite &edite);
    void ChangeLesBarres(Edite &edite);
    bool PrevoitSauvegarde(Edite &edite, bool sous);
    [[nodiscard]] bool PrevoitAbandon(Edite &edite);
    void PrevoitQuestion(Edite &edite, const QString &reponse);
    void PrendLeTexte(Edite &edite, const QString &chemin);
    void Oublie(LyTextEdit *vue);

    Partie &partie;
    QList<Edite> edites;      ///< in the order of their opening
    QList<Affiche> affiches;  ///< the same
    QList<QPointer<LyTextEdit>> restes;
    int curseurAttendu = -1;
    QString ecart;
};
