#pragma once

#include <QByteArray>
#include <QXmlDefaultHandler>

#include <memory>

class Arbre;
class InfoPersonne;
class Personne;

/// Fills a tree from the SAX events of one `.xrlg` file. Element names are matched exactly; what stands out of its place
/// is ignored. Serves one parse.
class XrlgHandler : public QXmlDefaultHandler
{
public:
    /// \a aRemplir is not owned; \a dossier is the folder in which photos are looked up.
    XrlgHandler(Arbre *aRemplir, QString &dossier);
    ~XrlgHandler() override;
    Q_DISABLE_COPY_MOVE(XrlgHandler)

    bool startElement(const QString &namespaceURI, const QString &localName, const QString &qName,
                      const QXmlAttributes &attributes) override;
    bool endElement(const QString &namespaceURI, const QString &localName, const QString &qName) override;
    bool characters(const QString &text) override;
    /// Tells the user where and why the text is wrong.
    bool fatalError(const QXmlParseException &exception) override;
    [[nodiscard]] QString errorString() const override;

private:
    bool Refuse(const QString &message);
    void FinitPersonne();
    bool EcritTexteArbre(const QString &balise);
    bool EcritTextePersonne(const QString &balise);
    bool EcritNombre(const QString &balise);

    QString texteCourant;  ///< characters since the last start tag
    QString messageErreur;
    bool baliseRacineVue = false;
    Arbre *arbre;
    std::unique_ptr<Personne> personneCourante;  ///< between its tags; the tree's afterwards
    QString repertoire;
    int profondeur = 0;  ///< open elements
};

/// Has \a handler read \a octets, the bytes of a `.xrlg` file without any "\r". False when they are no tree; the handler's
/// fatalError was told where and why.
[[nodiscard]] bool AnalyseXRLG(XrlgHandler &handler, QByteArray octets);
