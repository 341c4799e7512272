#!/usr/bin/python3
"""What a screen reader gets to know of the program, told line by line.

Events of the chart's persons are printed as they come: "foyer NAME", "choisie NAME", "laissée NAME".
Commands are read from the standard input and answered in one line each: see REPONSES.
"""
import sys

import gi

gi.require_version('Atspi', '2.0')
from gi.repository import Atspi, GLib  # noqa: E402


def dit(*mots):
    print(*mots, flush=True)


def liste(objet):
    """The chart below objet, or None."""
    if objet.get_role() == Atspi.Role.LIST:
        return objet
    for rang in range(objet.get_child_count()):
        enfant = objet.get_child_at_index(rang)
        trouvee = enfant and liste(enfant)
        if trouvee:
            return trouvee
    return None


def dessin():
    bureau = Atspi.get_desktop(0)
    for rang in range(bureau.get_child_count()):
        programme = bureau.get_child_at_index(rang)
        if programme and programme.get_name() == 'ramelier':
            return liste(programme)
    return None


def personne(rang):
    return dessin().get_child_at_index(int(rang))


def nom_du_dessin():
    trouve = dessin()
    return trouve.get_name() if trouve else ''


def noms():
    trouve = dessin()
    return '|'.join(trouve.get_child_at_index(i).get_name() for i in range(trouve.get_child_count()))


def place(rang):
    etendue = personne(rang).get_extents(Atspi.CoordType.SCREEN)
    return f'{etendue.x} {etendue.y} {etendue.width} {etendue.height}'


def sous(x, y):
    trouve = dessin().get_accessible_at_point(int(x), int(y), Atspi.CoordType.SCREEN)
    return trouve.get_name() if trouve else ''


def etat(rang):
    etats = personne(rang).get_state_set()
    vus = (('choisie', Atspi.StateType.SELECTED), ('foyer', Atspi.StateType.FOCUSED),
           ('choisissable', Atspi.StateType.SELECTABLE))
    return ' '.join(mot for mot, genre in vus if etats.contains(genre))


REPONSES = {
    'dessin': nom_du_dessin,
    'noms': noms,
    'description': lambda rang: personne(rang).get_description(),
    'place': place,
    'sous': sous,
    'etat': etat,
    'choisit': lambda rang: str(personne(rang).get_action_iface().do_action(0)),
}


def entend(evenement):
    source = evenement.source
    if not source or source.get_role() != Atspi.Role.LIST_ITEM:
        return
    if evenement.type.endswith('selected'):
        dit('choisie' if evenement.detail1 else 'laissée', source.get_name())
    elif evenement.detail1:
        dit('foyer', source.get_name())


def lit(canal, _condition):
    mots = canal.readline().split()
    if not mots:
        boucle.quit()
        return False
    try:
        dit('=', REPONSES[mots[0]](*mots[1:]))
    except (GLib.Error, AttributeError) as erreur:
        dit('=', 'erreur', erreur)
    return True


Atspi.init()
oreille = Atspi.EventListener.new(entend)
for genre in ('object:state-changed:focused', 'object:state-changed:selected'):
    oreille.register(genre)
boucle = GLib.MainLoop()
GLib.io_add_watch(sys.stdin, GLib.IO_IN | GLib.IO_HUP, lit)
dit('prêt')
boucle.run()
