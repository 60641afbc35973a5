#include "bench/Contender.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "platform/portable/Station.h"

#include <vector>

namespace nesk::bench {

namespace {

class Nesk final : public Contender {
public:
    Nesk() { m_menu.Initialize("C:\\"); }
    void Load(const std::string& path) override { m_menu.LoadFromFile("Z:" + path); }
    void Save(const std::string& path) override { m_menu.SaveToFile("Z:" + path); }
    int Count() override {
        int count = 0;
        std::vector<MenuEntry*> open{&m_menu};
        while (!open.empty()) {
            MenuEntry* entry = open.back();
            open.pop_back();
            count += entry->ChildCount();
            for (int i = entry->ChildCount(); i > 0; --i)
                open.push_back(&entry->SubMenus().Item(i));
        }
        return count;
    }

private:
    Menu m_menu;
};

} // namespace

std::unique_ptr<Contender> MakeNesk() {
    return std::make_unique<Nesk>();
}

} // namespace nesk::bench
